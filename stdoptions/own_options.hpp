// Settles a job's values of the printer's own options (QV...): each from the job's own choice, the
// standard option and the queue's default.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "job/print_job.hpp"

namespace kelm::stdoptions {

// Writes every option of the PPD whose keyword begins with "QV" into the job's options, and adds an
// override for each section in which CUPS wrote another choice. A choice of the own option other
// than the queue's default counts first, then a choice of the standard option other than the
// neutral one, then the default.
void settleOwnOptions(job::PrintJobData& job);

}  // namespace kelm::stdoptions
