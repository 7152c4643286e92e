// The queue's device URI among CUPS' destinations.
// SPDX-License-Identifier: Apache-2.0
#include "wakeup/wake_up_settings.hpp"

#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/fake/fake_platform.hpp"

namespace kelm::wakeup {
namespace {

class DeviceUri : public ::testing::Test {
 protected:
  platform::FakePlatform system;
};

TEST_F(DeviceUri, IsTheOptionOfTheQueueOfThatName) {
  system.destinations.add("first", "device-uri", "lpd://10.0.0.1/");
  system.destinations.add("second", "printer-info", "x");
  system.destinations.add("second", "device-uri", "lpd://10.0.0.2/");
  EXPECT_EQ(deviceUriOf("second"), "lpd://10.0.0.2/");
}

TEST_F(DeviceUri, IsTheLastOptionOfThatName) {
  system.destinations.add("queue", "device-uri", "lpd://10.0.0.1/");
  system.destinations.add("queue", "device-uri", "lpd://10.0.0.2/");
  EXPECT_EQ(deviceUriOf("queue"), "lpd://10.0.0.2/");
}

TEST_F(DeviceUri, IsTheDefaultQueuesForAnAbsentName) {
  system.destinations.add("queue", "device-uri", "lpd://10.0.0.1/");
  EXPECT_EQ(deviceUriOf(std::nullopt), std::nullopt);
  system.destinations.makeFirstDefault();
  EXPECT_EQ(deviceUriOf(std::nullopt), "lpd://10.0.0.1/");
}

TEST_F(DeviceUri, IsAbsentWithoutTheQueueOrTheOption) {
  EXPECT_EQ(deviceUriOf("queue"), std::nullopt);
  system.destinations.add("queue", "printer-info", "x");
  EXPECT_EQ(deviceUriOf("queue"), std::nullopt);
  EXPECT_EQ(deviceUriOf("other"), std::nullopt);
}

TEST_F(DeviceUri, IsTheEnvironmentsWithoutADestination) {
  setenv("DEVICE_URI", "lpd://10.0.0.9/", 1);
  EXPECT_EQ(deviceUriOf("queue"), "lpd://10.0.0.9/");
  system.destinations.add("queue", "printer-info", "x");
  EXPECT_EQ(deviceUriOf("queue"), "lpd://10.0.0.9/");
  system.destinations.add("queue", "device-uri", "lpd://10.0.0.1/");
  EXPECT_EQ(deviceUriOf("queue"), "lpd://10.0.0.1/");
  EXPECT_EQ(deviceUriOf("other"), "lpd://10.0.0.9/");
  setenv("DEVICE_URI", "", 1);
  EXPECT_EQ(deviceUriOf("other"), std::nullopt);
  unsetenv("DEVICE_URI");
}

TEST(WakeUpRequest, CarriesItsSwitchesAsWords) {
  const platform::WakeUpRequest request =
      requestFor({"private", "0:0:0:0:0:1", true, false}, "::1");
  EXPECT_EQ(request.address, "::1");
  EXPECT_EQ(request.macAddress, "0:0:0:0:0:1");
  EXPECT_EQ(request.snmpCommunity, "private");
  EXPECT_EQ(request.isWakeOnLan, "YES");
  EXPECT_EQ(request.isOverRouter, "NO");
  EXPECT_EQ(requestFor({"", "", false, true}, std::nullopt).isWakeOnLan, "NO");
  EXPECT_EQ(requestFor({"", "", false, true}, std::nullopt).isOverRouter, "YES");
}

}  // namespace
}  // namespace kelm::wakeup
