// A cancelled job: what SIGTERM does.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::filter {

// From here on SIGTERM only ends the wait for a sleeping printer, even when it comes before the
// wait. The job is still written to its end, so that the printer does not wait for the rest of a
// page. Interrupted system calls are restarted.
void catchTermination();

}  // namespace kelm::filter
