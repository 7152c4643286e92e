// The time of day.
// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/posix_platform.hpp"

namespace kelm::platform::posix_platform {

std::tm PosixWallClock::localTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return local;
}

}  // namespace kelm::platform::posix_platform
