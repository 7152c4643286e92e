// The paper that the header names: the page size that CUPS wrote into the PostScript.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "job/print_job.hpp"

namespace kelm::stdoptions {

// Makes "media" the marked page size: a name of the printer's papers, or "Custom.WIDTHxHEIGHT" in
// whole points. A "media" that names the same size, within 2 points, stays as the job has it.
void settlePageSize(job::PrintJobData& job);

}  // namespace kelm::stdoptions
