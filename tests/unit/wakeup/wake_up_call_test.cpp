// The wake-up call of a job: when it is made, what is asked, and how long the job waits.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <thread>

#include "platform/fake/fake_platform.hpp"
#include "tests/support/memory_ppd.hpp"
#include "wakeup/xpc_call_object.hpp"

namespace kelm::wakeup {
namespace {

using ::testing::Each;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using namespace std::chrono_literals;

constexpr char kMac[] = "MDA6MTE6MjI6MzM6NDQ6NTU=";      // 00:11:22:33:44:55
constexpr char kZeroMac[] = "MDA6MDA6MDA6MDA6MDA6MDA=";  // 00:00:00:00:00:00
constexpr char kShortMac[] = "MDA6MTE6MjI=";             // 00:11:22

TEST(IsEnableWakeOnLan, NeedsTheSwitch) {
  EXPECT_TRUE(XPCCallObject::isEnableWakeOnLan_macAddress_(true, "00:11:22:33:44:55"));
  EXPECT_FALSE(XPCCallObject::isEnableWakeOnLan_macAddress_(false, "00:11:22:33:44:55"));
}

TEST(IsEnableWakeOnLan, NeedsAnAddressThatIsNotAllZero) {
  EXPECT_FALSE(XPCCallObject::isEnableWakeOnLan_macAddress_(true, std::nullopt));
  EXPECT_FALSE(XPCCallObject::isEnableWakeOnLan_macAddress_(true, ""));
  EXPECT_FALSE(XPCCallObject::isEnableWakeOnLan_macAddress_(true, "00:00:00:00:00:00"));
  EXPECT_TRUE(XPCCallObject::isEnableWakeOnLan_macAddress_(true, "00:00:00:00:00:01"));
  EXPECT_TRUE(XPCCallObject::isEnableWakeOnLan_macAddress_(true, "01:00:00:00:00:00"));
  EXPECT_TRUE(XPCCallObject::isEnableWakeOnLan_macAddress_(true, "00:00:A0:00:00:00"));
}

TEST(IsEnableWakeOnLan, LooksAtSixPartsOnly) {
  EXPECT_FALSE(XPCCallObject::isEnableWakeOnLan_macAddress_(true, "0:0:0:0:0:0:1"));
}

TEST(IsEnableWakeOnLan, TakesAPartThatIsNoNumberForZero) {
  EXPECT_FALSE(XPCCallObject::isEnableWakeOnLan_macAddress_(true, "x1:-1:::g:00h1"));
  EXPECT_TRUE(XPCCallObject::isEnableWakeOnLan_macAddress_(true, "x:x:x:x:x:0Fx"));
  EXPECT_TRUE(XPCCallObject::isEnableWakeOnLan_macAddress_(true, "x:x:x:x:x: 0x0a"));
  EXPECT_TRUE(XPCCallObject::isEnableWakeOnLan_macAddress_(true, "0:0:0:0:0:fffffffffffffffff"));
}

TEST(IsEnableWakeOnLan, ThrowsForFewerThanSixParts) {
  EXPECT_THROW(XPCCallObject::isEnableWakeOnLan_macAddress_(true, "00:11:22:33:44"),
               std::out_of_range);
  EXPECT_THROW(XPCCallObject::isEnableWakeOnLan_macAddress_(true, "001122334455"),
               std::out_of_range);
  EXPECT_FALSE(XPCCallObject::isEnableWakeOnLan_macAddress_(false, "00:11"));
}

class WakeUpCall : public ::testing::Test {
 protected:
  WakeUpCall() {
    system.destinations.add("queue", "device-uri", "lpd://10.0.0.5/");
    system.nameLookup.hosts["10.0.0.5"] = {10, 0, 0, 5};
  }

  // Gives the job a PPD with these lines in it.
  void store(const std::string& lines) {
    ppd_.emplace(lines);
    job.ppd = *ppd_;
    ASSERT_NE(job.ppd, nullptr);
  }

  void storeMac(const std::string& mac) { store("*PrinterMacAddress: \"" + mac + "\"\n"); }

  void call() {
    char name[] = "queue";
    char* arguments[] = {name, nullptr};
    callWoLXPC(1, arguments, &job);
  }

  void expectNothingDone() {
    EXPECT_EQ(system.destinations.listed, 0);
    EXPECT_THAT(system.wakeUpBus.requests, IsEmpty());
    EXPECT_THAT(system.steadyClock.sleeps, IsEmpty());
  }

  platform::FakePlatform system;
  job::PrintJobData job;

 private:
  std::optional<tests::MemoryPpd> ppd_;
};

TEST_F(WakeUpCall, IsNotMadeWhereWakeOnLanIsOff) {
  store(std::string("*IsWakeOnLan: \"0\"\n*PrinterMacAddress: \"") + kMac + "\"\n");
  call();
  expectNothingDone();
}

TEST_F(WakeUpCall, IsNotMadeWithoutAMacAddress) {
  store("*IsWakeOnLan: \"1\"\n");
  call();
  expectNothingDone();
}

TEST_F(WakeUpCall, IsNotMadeForAnAllZeroMacAddress) {
  storeMac(kZeroMac);
  call();
  expectNothingDone();
}

TEST_F(WakeUpCall, IsNotMadeWithoutAPpd) {
  call();
  expectNothingDone();
}

TEST_F(WakeUpCall, ThrowsForAMacAddressOfTooFewParts) {
  storeMac(kShortMac);
  EXPECT_THROW(call(), std::out_of_range);
  expectNothingDone();
}

TEST_F(WakeUpCall, DoesNotWaitForACancelledJob) {
  storeMac(kMac);
  system.termination.asked = true;
  call();
  EXPECT_THAT(system.steadyClock.sleeps, IsEmpty());
}

TEST_F(WakeUpCall, EndsItsWaitWhenTheJobIsCancelled) {
  storeMac(kMac);
  system.steadyClock.duringSleep = [&] {
    system.termination.asked = system.steadyClock.sleeps.size() == 3;
  };
  call();
  EXPECT_THAT(system.steadyClock.sleeps, SizeIs(3));
}

TEST_F(WakeUpCall, AsksWithTheFactsOfThePpd) {
  store(std::string("*PrinterMacAddress: \"") + kMac + "\"\n*SnmpCommunityName: \"c2VjcmV0\"\n" +
        "*IsOverTheRouter: \"1\"\n");
  system.wakeUpBus.answersAtOnce = true;
  call();
  ASSERT_THAT(system.wakeUpBus.requests, SizeIs(1));
  const platform::WakeUpRequest& request = system.wakeUpBus.requests[0];
  EXPECT_EQ(request.address, "10.0.0.5");
  EXPECT_EQ(request.macAddress, "00:11:22:33:44:55");
  EXPECT_EQ(request.snmpCommunity, "secret");
  EXPECT_EQ(request.isWakeOnLan, "YES");
  EXPECT_EQ(request.isOverRouter, "YES");
}

TEST_F(WakeUpCall, AsksWithoutAnAddressWhereTheQueueIsUnknown) {
  storeMac(kMac);
  system.wakeUpBus.answersAtOnce = true;
  char name[] = "other";
  char* arguments[] = {name, nullptr};
  callWoLXPC(1, arguments, &job);
  ASSERT_THAT(system.wakeUpBus.requests, SizeIs(1));
  EXPECT_EQ(system.wakeUpBus.requests[0].address, std::nullopt);
}

TEST_F(WakeUpCall, LooksForTheDefaultQueueWithoutArguments) {
  storeMac(kMac);
  system.wakeUpBus.answersAtOnce = true;
  system.destinations.makeFirstDefault();
  char* arguments[] = {nullptr};
  callWoLXPC(0, arguments, &job);
  ASSERT_THAT(system.wakeUpBus.requests, SizeIs(1));
  EXPECT_EQ(system.wakeUpBus.requests[0].address, "10.0.0.5");
}

TEST_F(WakeUpCall, NeverSleepsWhenTheCallBackCameBeforeTheWait) {
  storeMac(kMac);
  system.wakeUpBus.answersAtOnce = true;
  call();
  EXPECT_THAT(system.steadyClock.sleeps, IsEmpty());
}

TEST_F(WakeUpCall, SleepsTwoHundredAndFortySecondsWithoutACallBack) {
  storeMac(kMac);
  call();
  EXPECT_THAT(system.steadyClock.sleeps, SizeIs(240));
  EXPECT_THAT(system.steadyClock.sleeps, Each(1s));
}

TEST_F(WakeUpCall, EndsAfterTheSleepInWhichAnotherThreadCalledBack) {
  storeMac(kMac);
  system.steadyClock.duringSleep = [&] {
    if (system.steadyClock.sleeps.size() == 3) std::thread(system.wakeUpBus.callBack).join();
  };
  call();
  EXPECT_THAT(system.steadyClock.sleeps, SizeIs(3));
}

TEST_F(WakeUpCall, SeesACallBackThatComesAtAnyMoment) {
  storeMac(kMac);
  std::thread service;
  system.steadyClock.duringSleep = [&] {
    if (!service.joinable()) service = std::thread(system.wakeUpBus.callBack);
    std::this_thread::sleep_for(1ms);
  };
  call();
  service.join();
  EXPECT_LT(system.steadyClock.sleeps.size(), 240U);
}

TEST_F(WakeUpCall, NeverSleepsWhereTheServiceCannotBeReached) {
  storeMac(kMac);
  system.wakeUpBus.open = false;
  call();
  EXPECT_THAT(system.steadyClock.sleeps, IsEmpty());
}

TEST_F(WakeUpCall, EndsWhenTheServiceTurnsOutNotToStart) {
  storeMac(kMac);
  system.steadyClock.duringSleep = [&] { system.wakeUpBus.open = false; };
  call();
  EXPECT_THAT(system.steadyClock.sleeps, SizeIs(1));
}

}  // namespace
}  // namespace kelm::wakeup
