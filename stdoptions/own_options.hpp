// The printer's own options of a job, each settled from the own choice, the standard choice and the
// queue's default.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "job/print_job.hpp"

namespace kelm::stdoptions {

// Writes every option of the PPD whose keyword begins with "QV" into the job's options, and adds an
// override for each section in which CUPS wrote another choice. An own choice other than the
// queue's default counts; else a standard choice other than the neutral one; else the default.
void settleOwnOptions(job::PrintJobData& job);

}  // namespace kelm::stdoptions
