// The user's home directory on Linux: HOME, as in a shell.
// SPDX-License-Identifier: Apache-2.0
#include <cstdlib>

#include "platform/linux/linux_platform.hpp"

namespace kelm::platform::linux_platform {

std::string LinuxHomeFolder::path() {
  const char* home = std::getenv("HOME");
  std::string path = home != nullptr ? home : "";
  while (path.ends_with('/')) path.pop_back();
  return path;
}

}  // namespace kelm::platform::linux_platform
