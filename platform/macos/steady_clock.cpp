// Steady time on macOS. The system cannot sleep until a given time, so a sleep that a signal ended
// is repeated for the time that is left.
// SPDX-License-Identifier: Apache-2.0
#include <ctime>

#include "platform/macos/macos_platform.hpp"

namespace kelm::platform::macos_platform {

std::chrono::nanoseconds MacosSteadyClock::now() {
  std::timespec time{};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

void MacosSteadyClock::sleep(std::chrono::nanoseconds time) {
  const std::chrono::nanoseconds end = now() + time;
  while (!platform().termination->requested()) {
    const std::chrono::nanoseconds left = end - now();
    if (left.count() <= 0) return;
    const auto seconds = std::chrono::floor<std::chrono::seconds>(left);
    std::timespec span{};
    span.tv_sec = seconds.count();
    span.tv_nsec = (left - seconds).count();
    nanosleep(&span, nullptr);
  }
}

}  // namespace kelm::platform::macos_platform
