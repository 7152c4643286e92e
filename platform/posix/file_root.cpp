// Absolute paths begin at "/".
// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/posix_platform.hpp"

namespace kelm::platform::posix_platform {

std::string PosixFileRoot::locate(std::string_view absolutePath) const {
  return std::string(absolutePath);
}

}  // namespace kelm::platform::posix_platform
