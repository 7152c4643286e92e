// The capacity of the pipes between the filters of a job (pipe(7)).
// SPDX-License-Identifier: Apache-2.0
#include "platform/pipe.hpp"

#include <fcntl.h>

namespace kelm::platform {

// Four times the usual capacity. Linux limits the pipes of one user to 64 MB in all.
void widenPipe(int descriptor) {
  constexpr int kCapacity = 256 * 1024;
  const int capacity = fcntl(descriptor, F_GETPIPE_SZ);
  if (capacity > 0 && capacity < kCapacity) fcntl(descriptor, F_SETPIPE_SZ, kCapacity);
}

}  // namespace kelm::platform
