// Pipes: of the processes that this one starts, and between the filters of a job.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::platform {

// Makes a pipe, to be read at `ends[0]`, that programs started by this process do not inherit.
// False when no descriptor is left.
bool openPipe(int (&ends)[2]);

// Enlarges the pipe at `descriptor`, so that the programs at its ends wake each other less often:
// that costs more than the copying. Does nothing when `descriptor` is not a pipe or may not be
// enlarged.
void widenPipe(int descriptor);

}  // namespace kelm::platform
