// The user's home folder on Linux: the environment's, as in a shell.
// SPDX-License-Identifier: Apache-2.0
#include <cstdlib>

#include "platform/linux/linux_bodies.hpp"

namespace kelm::platform::linux_bodies {

std::string LinuxHomeFolder::path() {
  const char* home = std::getenv("HOME");
  std::string path = home != nullptr ? home : "";
  while (path.ends_with('/')) path.pop_back();
  return path;
}

}  // namespace kelm::platform::linux_bodies
