// The copy loop as plainly as it can be written: one character at a time, nothing skipped. The
// product's loop must write the same bytes.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

#include "job/print_job.hpp"

namespace kelm::tests {

struct ReferenceJob {
  std::string output;     // what the job's input becomes, byte for byte
  std::string asRead;     // diagnostic file 2: the input without zero bytes and unlogged lines
  std::string asWritten;  // diagnostic file 3: the output without zero bytes and unlogged lines
};

// The diagnostic files must be off. Sections and copies that the standard options settle are
// included.
ReferenceJob referenceJob(std::string_view input, job::PrintJobData& job);

// What the stage of standard options would settle: an option "settle-KEYWORD" replaces the sections
// of that keyword by its value, or leaves them to their writer if it is empty; "settle-copies" is
// the number of copies that the header asks for.
void settle(job::PrintJobData& job);

// The output alone.
std::string referenceCopy(std::string_view input, job::PrintJobData& job);

}  // namespace kelm::tests
