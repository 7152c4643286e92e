// Calls that may never come back.
// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/bounded_call.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace kelm::platform::linux_platform {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using std::chrono::seconds;

TEST(ResultBefore, IsWhatTheCallReturnsWithoutWaitingForTheEnd) {
  const Clock::time_point start = Clock::now();
  EXPECT_EQ(7, resultBefore(start + seconds(30), [] { return 7; }));
  EXPECT_LT(Clock::now() - start, seconds(10));
}

TEST(ResultBefore, IsNothingForACallThatIsLate) {
  std::promise<void> gate;
  const Clock::time_point start = Clock::now();
  EXPECT_FALSE(resultBefore(start + milliseconds(50), [opened = gate.get_future()] {
    opened.wait();
    return 7;
  }));
  EXPECT_GE(Clock::now() - start, milliseconds(50));
  gate.set_value();
}

TEST(ResultBefore, LeavesALateCallAllThatItUses) {
  std::promise<void> gate;
  std::promise<int> promise;
  std::future<int> seen = promise.get_future();
  EXPECT_FALSE(
      resultBefore(Clock::now(), [opened = gate.get_future(), owned = std::make_unique<int>(7),
                                  promise = std::move(promise)]() mutable {
        opened.wait();
        promise.set_value(*owned);
        return true;
      }));
  gate.set_value();
  EXPECT_EQ(7, seen.get());
}

}  // namespace
}  // namespace kelm::platform::linux_platform
