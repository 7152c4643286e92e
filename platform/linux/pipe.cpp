// The pipes between the print system's programs: their capacity, pipe(7).
// SPDX-License-Identifier: Apache-2.0
#include "platform/pipe.hpp"

#include <fcntl.h>

namespace kelm::platform {

// Four times the usual capacity; a user may have 64 MB of pipes in all before Linux refuses.
void widenPipe(int descriptor) {
  constexpr int kCapacity = 256 * 1024;
  const int capacity = fcntl(descriptor, F_GETPIPE_SZ);
  if (capacity > 0 && capacity < kCapacity) fcntl(descriptor, F_SETPIPE_SZ, kCapacity);
}

}  // namespace kelm::platform
