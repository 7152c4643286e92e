// Pipes on Linux, and their capacity (pipe(7)).
// SPDX-License-Identifier: Apache-2.0
#include "platform/pipe.hpp"

#include <fcntl.h>
#include <unistd.h>

namespace kelm::platform {

bool openPipe(int (&ends)[2]) { return pipe2(ends, O_CLOEXEC) == 0; }

// Four times the usual capacity. Linux limits the pipes of one user to 64 MB in all.
void widenPipe(int descriptor) {
  constexpr int kCapacity = 256 * 1024;
  const int capacity = fcntl(descriptor, F_GETPIPE_SZ);
  if (capacity > 0 && capacity < kCapacity) fcntl(descriptor, F_SETPIPE_SZ, kCapacity);
}

}  // namespace kelm::platform
