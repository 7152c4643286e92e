// Absolute paths on Linux begin at "/".
// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/linux_platform.hpp"

namespace kelm::platform::linux_platform {

std::string LinuxFileRoot::locate(std::string_view absolutePath) const {
  return std::string(absolutePath);
}

}  // namespace kelm::platform::linux_platform
