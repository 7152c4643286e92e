// The whole header of a job, in the order that the printer's firmware requires.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>
#include <span>

#include "job/print_job.hpp"
#include "pjl/variables.hpp"

namespace kelm::pjl {

// Consecutive lines that are written for every job, or only for jobs from the maker's dialog.
struct HeaderSection {
  bool dialogOnly;
  std::span<const HeaderStep> steps;
};

// The variables in their order, without the frame.
std::span<const HeaderSection> headerSections();

// Writes the header, from the UEL to the switch to PostScript. Returns what putc(3) returns for the
// last character: a line feed, or EOF when the stream has failed. Callers may ignore it: a stream
// error also shows in ferror(3).
int OutputPJL(std::FILE* stream, job::PrintJobData& job);

}  // namespace kelm::pjl
