// The pipes between the print system's programs.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::platform {

// Lets the pipe at `descriptor` hold more than one block of a job, so that the programs at its ends
// wake each other less often, which costs more than the copying. What is no pipe, or may not be
// widened, stays as it is.
void widenPipe(int descriptor);

}  // namespace kelm::platform
