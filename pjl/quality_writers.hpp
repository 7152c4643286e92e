// The writers with logic of their own among the variables of colour, barcodes and profiles.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

#include "job/print_job.hpp"

namespace kelm::pjl {

using job::PrintJobData;

// Writes two lines. Their order depends on whether the job came from the maker's dialog.
void writeGrayAndRedLines(std::FILE* stream, PrintJobData& job);
void writeBarcodeAreaLine(std::FILE* stream, PrintJobData& job);
void writeBarcodeSelectionLine(std::FILE* stream, PrintJobData& job);
void writeOutputProfileLine(std::FILE* stream, PrintJobData& job);

}  // namespace kelm::pjl
