// The work for one printer: asking it until it answers, and sending the packets that are due.
// SPDX-License-Identifier: Apache-2.0
#include "wolservice/printer_work.hpp"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace kelm::wolservice {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

TEST(AskUntilAnswered, AsksUntilThePrinterAnswers) {
  int silences = 3;
  askUntilAnswered([&] { return --silences == -1; }, 1ms);
  EXPECT_EQ(silences, -1);
}

TEST(AskUntilAnswered, WaitsBetweenTwoQuestions) {
  int silences = 2;
  const auto start = Clock::now();
  askUntilAnswered([&] { return --silences == -1; }, 30ms);
  EXPECT_GE(Clock::now() - start, 60ms);
}

TEST(AskUntilAnswered, AsksAtOnceAfterALongQuestion) {
  constexpr auto kInterval = 500ms;
  std::vector<Clock::time_point> begins;
  askUntilAnswered(
      [&] {
        begins.push_back(Clock::now());
        if (begins.size() == 1) std::this_thread::sleep_for(kInterval);
        return begins.size() == 2;
      },
      kInterval);
  EXPECT_LT(begins.at(1) - begins.at(0), 2 * kInterval);
}

TEST(SendWhenDue, SendsThreeAtOnceAHundredMillisecondsApart) {
  std::vector<Clock::time_point> times;
  const auto start = Clock::now();
  sendWhenDue([&] { times.push_back(Clock::now()); }, 3);
  ASSERT_EQ(times.size(), 3U);
  EXPECT_GE(times[1] - start, 100ms);
  EXPECT_GE(times[2] - start, 200ms);
}

}  // namespace
}  // namespace kelm::wolservice
