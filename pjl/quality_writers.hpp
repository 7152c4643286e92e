// The writers with logic of their own among the variables of colour, barcodes and profiles.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

#include "job/print_job.hpp"

namespace kelm::pjl {

using job::PrintJobData;

// Two lines, in an order that depends on where the job came from.
void writeGrayAndRed(std::FILE* stream, PrintJobData& job);
void writeBarcodeArea(std::FILE* stream, PrintJobData& job);
void writeBarcodeSelection(std::FILE* stream, PrintJobData& job);
void writeOutputProfile(std::FILE* stream, PrintJobData& job);

}  // namespace kelm::pjl
