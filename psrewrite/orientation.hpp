// The orientation of the job, as a number and in the orientation comment of the PostScript.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "job/print_job.hpp"
#include "psrewrite/job_stream.hpp"

namespace kelm::psrewrite {

// 0 portrait, 1 landscape, -1 unknown: by the dialog's preset, else by "orientation-requested"
// (RFC 8011: 3 portrait, 4 landscape, 5 and 6 their reverses; here 5 counts as landscape and 6 as
// portrait), else by "QVOrientation"; portrait when the job says nothing.
int getPaperOrientation(const job::PrintJobData* job);

// Rewrites the orientation comment in `line` (a line after its first "%") to the job's
// "QVOrientation"; text after the choice is dropped. The new length, or -1 when unchanged.
std::int32_t replaceOrientation(LineBuffer& line, const job::PrintJobData* job);

// The same by the shape of the job's custom paper, whatever its options.
std::int32_t replaceCustomOrientation(LineBuffer& line, bool portrait);

}  // namespace kelm::psrewrite
