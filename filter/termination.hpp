// A cancelled job: what SIGTERM does.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::filter {

// From here on SIGTERM ends the wait for a sleeping printer and nothing else, also when it comes
// before the wait: the job is still written to its end, so that the printer is not left waiting for
// the rest of a page. Interrupted system calls are restarted.
void catchTermination();

}  // namespace kelm::filter
