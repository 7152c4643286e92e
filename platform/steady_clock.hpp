// Monotonic time and sleeping.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>

namespace kelm::platform {

class SteadyClock {
 public:
  virtual ~SteadyClock() = default;

  // Time since a fixed moment in the past.
  virtual std::chrono::nanoseconds now() = 0;

  // Sleeps the calling thread for `time`. Only a request to end the process (Termination) shortens
  // the sleep.
  virtual void sleep(std::chrono::nanoseconds time) = 0;
};

}  // namespace kelm::platform
