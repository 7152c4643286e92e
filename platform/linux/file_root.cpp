// Absolute paths on Linux are what they say.
// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/linux_bodies.hpp"

namespace kelm::platform::linux_bodies {

std::string LinuxFileRoot::locate(std::string_view absolutePath) const {
  return std::string(absolutePath);
}

}  // namespace kelm::platform::linux_bodies
