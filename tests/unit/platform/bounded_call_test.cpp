// Calls that may never return.
// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/bounded_call.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <memory>

#include "platform/system_platform.hpp"
#include "tests/support/child.hpp"

namespace kelm::platform::posix_platform {
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

// In its own process, because a noted SIGTERM stays noted.
TEST(ResultBefore, IsNothingOnceTheProcessIsAskedToEnd) {
  EXPECT_EQ("", tests::inChild([] {
              const Clock::time_point start = Clock::now();
              std::promise<void> gate;
              std::thread([] {
                std::this_thread::sleep_for(milliseconds(50));
                noteTermination();
              }).detach();
              const bool late = resultBefore(start + seconds(30), [opened = gate.get_future()] {
                                  opened.wait();
                                  return 7;
                                }).has_value();
              gate.set_value();
              const bool sleeps = Clock::now() - start > seconds(10);
              systemPlatform().steadyClock->sleep(seconds(30));
              const bool sleepsOn = Clock::now() - start > seconds(20);
              return std::string(late ? "result " : "") + (sleeps ? "waits " : "") +
                     (sleepsOn ? "sleeps" : "");
            }));
}

std::atomic<bool> threadHasEnded = false;

struct SlowEnd {
  bool isUsed = false;
  ~SlowEnd() {
    std::this_thread::sleep_for(milliseconds(100));
    threadHasEnded = true;
  }
};

// A thread takes locks at its end, the resolver's among them. A process that is forked meanwhile
// would find them locked for ever.
TEST(ResultBefore, ComesWhenTheThreadHasEnded) {
  EXPECT_TRUE(resultBefore(Clock::now() + seconds(30), [] {
    thread_local SlowEnd end;
    return end.isUsed = true;
  }));
  EXPECT_TRUE(threadHasEnded);
}

TEST(ResultBefore, LeavesSignalsToTheOtherThreads) {
  const auto blocked = resultBefore(Clock::now() + seconds(30), [] {
    sigset_t mask;
    pthread_sigmask(SIG_SETMASK, nullptr, &mask);
    return sigismember(&mask, SIGTERM) == 1;
  });
  EXPECT_EQ(blocked, true);
}

}  // namespace
}  // namespace kelm::platform::posix_platform
