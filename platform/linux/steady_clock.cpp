// Steady time on Linux: the monotonic clock.
// SPDX-License-Identifier: Apache-2.0
#include <cerrno>
#include <ctime>

#include "platform/linux/linux_platform.hpp"

namespace kelm::platform::linux_platform {

std::chrono::nanoseconds LinuxSteadyClock::now() {
  std::timespec time{};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

void LinuxSteadyClock::sleep(std::chrono::nanoseconds time) {
  const std::chrono::nanoseconds end = now() + time;
  const auto seconds = std::chrono::floor<std::chrono::seconds>(end);
  std::timespec until{};
  until.tv_sec = seconds.count();
  until.tv_nsec = (end - seconds).count();
  while (!platform().termination->requested() &&
         clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr) == EINTR) {
  }
}

}  // namespace kelm::platform::linux_platform
