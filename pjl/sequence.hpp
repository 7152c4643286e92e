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

// Writes one fixed line.
using FrameWriter = void (*)(std::FILE* stream);

// The fixed lines before the variables, in their order.
std::span<const FrameWriter> frameBeforeVariables();

// The variables in their order, without the frame.
std::span<const HeaderSection> headerSections();

// Calls `visitor` with every step of a header in its order.
template <class Visitor>
void forEachStep(bool isDialogJob, Visitor visitor) {
  for (const HeaderSection& section : headerSections()) {
    if (section.dialogOnly && !isDialogJob) continue;
    for (const HeaderStep& step : section.steps) visitor(step);
  }
}

// Writes the line or lines of one step.
inline void writeStep(std::FILE* stream, job::PrintJobData& job, const HeaderStep& step) {
  std::visit([&](const auto* row) { (*row)(stream, job); }, step);
}

// Writes the header, from the UEL to the switch to PostScript. Returns what putc(3) returns for the
// last character: a line feed, or EOF when the stream has failed. Callers may ignore it: a stream
// error also shows in ferror(3).
int OutputPJL(std::FILE* stream, job::PrintJobData& job);

}  // namespace kelm::pjl
