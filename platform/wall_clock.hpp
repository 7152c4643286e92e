// The time of day.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <ctime>

namespace kelm::platform {

class WallClock {
 public:
  virtual ~WallClock() = default;

  // The current local time; all zero when it cannot be determined.
  virtual std::tm localTime() = 0;
};

}  // namespace kelm::platform
