// The pipes between the filters of a job.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::platform {

// Enlarges the pipe at `descriptor`, so that the programs at its ends wake each other less often:
// that costs more than the copying. Does nothing when `descriptor` is not a pipe or may not be
// enlarged.
void widenPipe(int descriptor);

}  // namespace kelm::platform
