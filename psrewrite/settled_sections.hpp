// What the settled options change in the PostScript besides what the feature writers do: sections
// in which CUPS wrote another choice, and CUPS' own request for copies.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "job/print_job.hpp"
#include "psrewrite/job_stream.hpp"

namespace kelm::psrewrite {

// The override of the section that `line` opens ("%BeginFeature: *KEYWORD CHOICE", also
// "*CustomKEYWORD"); null when the job has none.
const job::SectionOverride* sectionOverride(const LineBuffer& line, const job::PrintJobData& job);

// Names the override's choice in the opening comment, unless it is too long for a line; the new
// length of the line.
std::int32_t nameChoice(LineBuffer& line, const job::SectionOverride& section);

// Reads the section's lines from the stream, through the closing comment, and writes the override's
// code instead. For an override without code it reads one line, and the section's writer does the
// rest. Returns whether the section is done.
bool writeOverride(JobStream& stream, LineBuffer& line, const job::SectionOverride& section);

// Whether `line`, the rest of a line after its "%", is one in which pstops asks for the job's
// copies, which the header asks for.
bool asksForCopies(const LineBuffer& line, const job::PrintJobData& job);

// Drops what belongs to that line: the rest of its section. "%%Requirements: numcopies(3) duplex"
// is written without the copies.
void dropCopies(JobStream& stream, LineBuffer& line);

}  // namespace kelm::psrewrite
