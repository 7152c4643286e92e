// Time that only goes forward, and waiting for it to pass.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>

namespace kelm::platform {

class SteadyClock {
 public:
  virtual ~SteadyClock() = default;

  // Time since a fixed moment of the past.
  virtual std::chrono::nanoseconds now() = 0;

  // Stops the calling thread for `time`; a signal does not shorten it.
  virtual void sleep(std::chrono::nanoseconds time) = 0;
};

}  // namespace kelm::platform
