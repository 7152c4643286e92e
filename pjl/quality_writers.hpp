// The writers with logic of their own among the variables of colour, barcodes and profiles.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

#include "job/print_job.hpp"

namespace kelm::pjl {

using job::PrintJobData;

// Two lines, in an order that depends on where the job came from.
void writeGrayAndRedLines(std::FILE* stream, PrintJobData& job);
void writeBarcodeAreaLine(std::FILE* stream, PrintJobData& job);
void writeBarcodeSelectionLine(std::FILE* stream, PrintJobData& job);
void writeOutputProfileLine(std::FILE* stream, PrintJobData& job);

}  // namespace kelm::pjl
