// The job's PostScript, copied to the printer with its feature sections rewritten.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "job/print_job.hpp"
#include "psrewrite/job_stream.hpp"

namespace kelm::filter {

// Copies the input to the output until it ends. After every "%" it examines the rest of the line:
// the orientation comment follows the job, a face-up choice becomes face down unless the job's
// output tray decides, and a feature section gets the job's value. All other bytes are unchanged.
void copyPostScript(psrewrite::JobStream& stream, job::PrintJobData& job);

}  // namespace kelm::filter
