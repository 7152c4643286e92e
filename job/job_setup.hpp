// Decisions about a job before its first byte is written.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "job/print_job.hpp"

namespace kelm::job {

// Sets customSizeFlg, widthLength and heighLength from the job's "media" options that name a custom
// size "Custom.WIDTHxHEIGHT" (whole points; a unit after them is ignored). Jobs with 100 options
// or more keep the normal paper, except in queues whose PPD has the standard options.
void decideCustomPaper(const PrintJobData& job);

// Sets the job's keepOutputFace: 1 when an output tray other than "Auto" and "FaceDown" is chosen.
void decideOutputFace(PrintJobData& job);

}  // namespace kelm::job
