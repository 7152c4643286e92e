// Standard streams.
// SPDX-License-Identifier: Apache-2.0
#include "platform/standard_streams.hpp"

#include <fcntl.h>
#include <unistd.h>

namespace kelm::platform {

// open(2) returns the lowest free descriptor.
void openStandardStreams() {
  for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
    if (fcntl(descriptor, F_GETFD) < 0) open("/dev/null", O_RDWR);
  }
}

}  // namespace kelm::platform
