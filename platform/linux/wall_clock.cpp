// The time of day on Linux.
// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/linux_platform.hpp"

namespace kelm::platform::linux_platform {

std::tm LinuxWallClock::localTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return local;
}

}  // namespace kelm::platform::linux_platform
