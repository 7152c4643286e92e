// The user's home directory: HOME, as in a shell.
// SPDX-License-Identifier: Apache-2.0
#include <cstdlib>

#include "platform/posix/posix_platform.hpp"

namespace kelm::platform::posix_platform {

std::string PosixHomeDirectory::path() {
  const char* home = std::getenv("HOME");
  std::string path = home != nullptr ? home : "";
  while (path.ends_with('/')) path.pop_back();
  return path;
}

}  // namespace kelm::platform::posix_platform
