// The whole header of a job, in the one order that the printer's firmware knows.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>
#include <span>

#include "job/print_job.hpp"
#include "pjl/variables.hpp"

namespace kelm::pjl {

// Steps that are written together, for every job or only for jobs of the maker's dialog.
struct HeaderSection {
  bool dialogOnly;
  std::span<const HeaderStep> steps;
};

// The job's variables in their order, without the frame.
std::span<const HeaderSection> headerSections();

// Writes the header, from the UEL to the switch to PostScript. Returns the result of its last
// character write, as putc(3): a line feed, or EOF when the stream does not take it; nobody needs
// to look at it.
int OutputPJL(std::FILE* stream, job::PrintJobData& job);

}  // namespace kelm::pjl
