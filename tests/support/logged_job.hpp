// A job's PostScript, copied with the diagnostic files switched on.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string_view>

#include "job/print_job.hpp"
#include "tests/support/diagnostics_on.hpp"
#include "tests/support/reference_loop.hpp"

namespace kelm::tests {

// What the copy loop writes to the printer and to the diagnostic files 2 and 3. The input comes in
// reads of `blockSize` bytes. Removes the files and switches them off.
ReferenceJob loggedJob(DiagnosticsOn& diagnostics, std::string_view input, job::PrintJobData& job,
                       std::size_t blockSize = 1U << 20U);

}  // namespace kelm::tests
