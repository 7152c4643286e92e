// Standard options, which any program may send, become the printer's own options before anything
// else reads the job, so that header and PostScript agree.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "job/print_job.hpp"

namespace kelm::stdoptions {

// The PPD attribute that asks for this stage: "*KelmStandardOptions: True".
inline constexpr char kAttribute[] = "KelmStandardOptions";

// Whether the stage changes this job: its PPD asks for it, and neither the maker's dialog, whose
// values are final, nor an update job sent it.
bool standardOptionsApply(const job::PrintJobData& job);

// Settles the job's options when they apply. Afterwards the record has every own option of the PPD
// with the choice that the printer gets, "media" is the page size of the PostScript, and the
// record's overrides are the sections in which CUPS wrote another choice. `copies` is the filter's
// argument: the number of copies that the header asks for, unless CUPS sends the pages repeatedly.
void settleOptions(job::PrintJobData& job, int copies);

}  // namespace kelm::stdoptions
