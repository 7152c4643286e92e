// The computer's name on Linux: gethostname(2).
// SPDX-License-Identifier: Apache-2.0
#include <unistd.h>

#include <array>
#include <climits>

#include "platform/linux/linux_platform.hpp"

namespace kelm::platform::linux_platform {

std::string LinuxComputerName::get() {
  std::array<char, HOST_NAME_MAX + 1> name{};
  return gethostname(name.data(), name.size()) == 0 ? name.data() : "";
}

}  // namespace kelm::platform::linux_platform
