// A job's header as data: the lines that OutputPJL writes, with the row that wrote each.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "job/print_job.hpp"
#include "pjl/sequence.hpp"

namespace kelm::pjl {

struct RecordedLine {
  const HeaderStep* step;  // null for a line of the frame
  std::string variable;    // empty for a line that sets none
  std::string value;       // of the variable, else the whole line; may hold line feeds of the job
};

// Splits "@PJL SET NAME=VALUE" (without its line feed). Any other line becomes the value as a
// whole.
RecordedLine recordedLine(const HeaderStep* step, std::string_view line);

// The lines of one step, written for `job`.
std::vector<RecordedLine> recordStep(job::PrintJobData& job, const HeaderStep& step);

// The whole header of `job`, from the UEL to the switch to PostScript. Changes the job as OutputPJL
// does.
std::vector<RecordedLine> recordHeader(job::PrintJobData& job);

}  // namespace kelm::pjl
