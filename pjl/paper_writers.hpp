// The writers with logic of their own among the variables of host, zoom, paper, copies and trays.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

#include "job/print_job.hpp"

namespace kelm::pjl {

using job::PrintJobData;

// Writes no line when neither the option nor the computer gives a name.
void writeHostNameLine(std::FILE* stream, PrintJobData& job);
void writeManualZoomLine(std::FILE* stream, PrintJobData& job);
// Writes no line for a dialog job without a rate.
void writeZoomRateLine(std::FILE* stream, PrintJobData& job);
// The variable is QTY for collated copies, else COPIES.
void writeCopiesLine(std::FILE* stream, PrintJobData& job);

// Both first set the job's own duplex option to the short edge when the job is a booklet. Every
// later reader of the job sees that change.
void writeDuplexLine(std::FILE* stream, PrintJobData& job);
void writeBindingEdgeLine(std::FILE* stream, PrintJobData& job);

void writePageSizeLine(std::FILE* stream, PrintJobData& job);
// In 1/100 mm. Write no line for a plain job's mapped custom paper if job::hasCustomPaperSize is
// false.
void writePageWidthLine(std::FILE* stream, PrintJobData& job);
void writePageHeightLine(std::FILE* stream, PrintJobData& job);
void writeTargetPaperLine(std::FILE* stream, PrintJobData& job);
// In 1/100 mm; empty for a paper that is not in the table.
void writeTargetWidthLine(std::FILE* stream, PrintJobData& job);
void writeTargetHeightLine(std::FILE* stream, PrintJobData& job);
void writePageTrayRepeatLine(std::FILE* stream, PrintJobData& job);

}  // namespace kelm::pjl
