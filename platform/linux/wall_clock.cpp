// The time of day on Linux.
// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/linux_bodies.hpp"

namespace kelm::platform::linux_bodies {

std::tm LinuxWallClock::localTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return local;
}

}  // namespace kelm::platform::linux_bodies
