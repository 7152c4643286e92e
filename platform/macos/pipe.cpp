// Pipes on macOS, which widens a busy pipe itself.
// SPDX-License-Identifier: Apache-2.0
#include "platform/pipe.hpp"

#include <fcntl.h>
#include <unistd.h>

namespace kelm::platform {

bool openPipe(int (&ends)[2]) {
  if (pipe(ends) != 0) return false;
  for (const int end : ends) fcntl(end, F_SETFD, FD_CLOEXEC);
  return true;
}

void widenPipe(int /*descriptor*/) {}

}  // namespace kelm::platform
