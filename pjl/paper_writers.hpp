// The writers with logic of their own among the variables of host, zoom, paper, copies and trays.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

#include "job/print_job.hpp"

namespace kelm::pjl {

using job::PrintJobData;

// No line when neither the option nor the computer gives a name.
void writeHostName(std::FILE* stream, PrintJobData& job);
void writeManualZoom(std::FILE* stream, PrintJobData& job);
// No line for a dialog job without a rate.
void writeZoomRate(std::FILE* stream, PrintJobData& job);
// Under the name QTY for collated copies, else COPIES.
void writeCopies(std::FILE* stream, PrintJobData& job);

// Both put the short edge into the job's own options first when it is a booklet: the change stays
// for every later reader of the job.
void writeDuplex(std::FILE* stream, PrintJobData& job);
void writeBindingEdge(std::FILE* stream, PrintJobData& job);

void writePageSize(std::FILE* stream, PrintJobData& job);
// In 1/100 mm. No line for a plain job's custom paper that has no size.
void writePageWidth(std::FILE* stream, PrintJobData& job);
void writePageHeight(std::FILE* stream, PrintJobData& job);
void writeTargetPaper(std::FILE* stream, PrintJobData& job);
// In 1/100 mm; empty for a paper that the printer does not know.
void writeTargetWidth(std::FILE* stream, PrintJobData& job);
void writeTargetHeight(std::FILE* stream, PrintJobData& job);
void writePageTrayRepeat(std::FILE* stream, PrintJobData& job);

}  // namespace kelm::pjl
