// The writers with logic of their own among the variables of host, zoom, paper, copies and trays.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

#include "job/print_job.hpp"

namespace kelm::pjl {

using job::PrintJobData;

// No line when neither the option nor the computer gives a name.
void writeHostNameLine(std::FILE* stream, PrintJobData& job);
void writeManualZoomLine(std::FILE* stream, PrintJobData& job);
// No line for a dialog job without a rate.
void writeZoomRateLine(std::FILE* stream, PrintJobData& job);
// Under the name QTY for collated copies, else COPIES.
void writeCopiesLine(std::FILE* stream, PrintJobData& job);

// Both put the short edge into the job's own options first when it is a booklet: the change stays
// for every later reader of the job.
void writeDuplexLine(std::FILE* stream, PrintJobData& job);
void writeBindingEdgeLine(std::FILE* stream, PrintJobData& job);

void writePageSizeLine(std::FILE* stream, PrintJobData& job);
// In 1/100 mm. No line for a plain job's custom paper that has no size.
void writePageWidthLine(std::FILE* stream, PrintJobData& job);
void writePageHeightLine(std::FILE* stream, PrintJobData& job);
void writeTargetPaperLine(std::FILE* stream, PrintJobData& job);
// In 1/100 mm; empty for a paper that the printer does not know.
void writeTargetWidthLine(std::FILE* stream, PrintJobData& job);
void writeTargetHeightLine(std::FILE* stream, PrintJobData& job);
void writePageTrayRepeatLine(std::FILE* stream, PrintJobData& job);

}  // namespace kelm::pjl
