// The check of the service's arguments.
// SPDX-License-Identifier: Apache-2.0
#include "wolservice/wake_up_order.hpp"

#include <gtest/gtest.h>

namespace kelm::wolservice {
namespace {

WakeUpArguments good() { return {"10.0.0.5", "00:80:92:aB:c:5", "public", "YES", "NO"}; }

bool isTaken(const WakeUpArguments& arguments) {
  std::string problem;
  const bool taken = checkedOrder(arguments, problem).has_value();
  EXPECT_EQ(taken, problem.empty());
  return taken;
}

bool isTakenWithMac(const std::string& macAddress) {
  WakeUpArguments arguments = good();
  arguments.macAddress = macAddress;
  return isTaken(arguments);
}

bool isTakenWithAddress(const std::string& address) {
  WakeUpArguments arguments = good();
  arguments.address = address;
  return isTaken(arguments);
}

TEST(WakeUpOrder, IsWhatTheArgumentsSay) {
  std::string problem;
  const auto order = checkedOrder(good(), problem);
  ASSERT_TRUE(order);
  EXPECT_EQ(order->address, "10.0.0.5");
  EXPECT_EQ(order->macAddress, (base::MacAddress{0x00, 0x80, 0x92, 0xAB, 0x0C, 0x05}));
  EXPECT_EQ(order->snmpCommunity, "public");
  EXPECT_TRUE(order->isWakeOnLan);
  EXPECT_FALSE(order->isOverRouter);
}

TEST(WakeUpOrder, NeedsSixHexadecimalParts) {
  EXPECT_FALSE(isTakenWithMac(""));
  EXPECT_FALSE(isTakenWithMac("00:11:22:33:44"));
  EXPECT_FALSE(isTakenWithMac("00:11:22:33:44:55:66"));
  EXPECT_FALSE(isTakenWithMac("00:11:22:33:44:"));
  EXPECT_FALSE(isTakenWithMac("00:11:22:33:44:5g"));
  EXPECT_FALSE(isTakenWithMac("00:11:22:33:44:+5"));
  EXPECT_FALSE(isTakenWithMac("00:11:22:33:44:055"));
  EXPECT_FALSE(isTakenWithMac("00-11-22-33-44-55"));
}

TEST(WakeUpOrder, NeedsAMacAddressThatIsNotAllZero) {
  EXPECT_FALSE(isTakenWithMac("00:00:00:00:00:00"));
  EXPECT_TRUE(isTakenWithMac("00:00:00:00:00:01"));
}

TEST(WakeUpOrder, TakesAddressesOfBothFamilies) {
  EXPECT_TRUE(isTakenWithAddress("fe80::1"));
  EXPECT_TRUE(isTakenWithAddress("fe80::1%en0"));
  EXPECT_FALSE(isTakenWithAddress("fe80::1%"));
  EXPECT_FALSE(isTakenWithAddress("fe80::1%a b"));
  EXPECT_FALSE(isTakenWithAddress("fe80::1%abcdefghijklmnop"));
  EXPECT_FALSE(isTakenWithAddress("fe80:::1"));
}

TEST(WakeUpOrder, TakesHostNames) {
  EXPECT_TRUE(isTakenWithAddress("printer"));
  EXPECT_TRUE(isTakenWithAddress("ij-2.office.example."));
  EXPECT_TRUE(isTakenWithAddress(std::string(63, 'a')));
  EXPECT_FALSE(isTakenWithAddress(std::string(64, 'a')));
  EXPECT_FALSE(isTakenWithAddress("-printer"));
  EXPECT_FALSE(isTakenWithAddress("printer-"));
  EXPECT_FALSE(isTakenWithAddress("a..b"));
  EXPECT_FALSE(isTakenWithAddress("printer.."));
  EXPECT_FALSE(isTakenWithAddress("."));
  std::string longest;
  for (int i = 0; i < 127; ++i) longest += "a.";
  longest.pop_back();
  EXPECT_TRUE(isTakenWithAddress(longest));
  EXPECT_FALSE(isTakenWithAddress(longest + "b"));
}

TEST(WakeUpOrder, RefusesAMissingAddressAndAUri) {
  EXPECT_FALSE(isTakenWithAddress(""));
  EXPECT_FALSE(isTakenWithAddress("socket://10.0.0.5:9100"));
  EXPECT_FALSE(isTakenWithAddress("two words"));
  EXPECT_FALSE(isTakenWithAddress(std::string("10.0.0.5\0more", 13)));
}

TEST(WakeUpOrder, RefusesAnAddressThatNoPrinterCanHave) {
  for (const char* address :
       {"0.0.0.0", "0.1.2.3", "127.0.0.1", "127.255.255.254", "127.1", "224.0.0.1",
        "239.255.255.255", "255.255.255.255", "::", "::1", "ff02::1", "ff05::2%lo",
        "::ffff:127.0.0.1", "::ffff:224.0.0.1", "::127.0.0.1"}) {
    EXPECT_FALSE(isTakenWithAddress(address)) << address;
  }
  for (const char* address : {"1.0.0.1", "126.255.255.255", "128.0.0.1", "223.255.255.255",
                              "240.0.0.1", "fe80::1", "fd00::1", "::ffff:10.0.0.5"}) {
    EXPECT_TRUE(isTakenWithAddress(address)) << address;
  }
}

TEST(WakeUpOrder, IsEqualToOneWithTheSameArguments) {
  std::string problem;
  const auto order = checkedOrder(good(), problem);
  EXPECT_EQ(order, checkedOrder(good(), problem));
  WakeUpArguments other = good();
  other.snmpCommunity = "other";
  EXPECT_NE(order, checkedOrder(other, problem));
}

TEST(WakeUpOrder, TakesCommunitiesOfAtMost255Bytes) {
  WakeUpArguments arguments = good();
  arguments.snmpCommunity = std::string(255, 'c');
  EXPECT_TRUE(isTaken(arguments));
  arguments.snmpCommunity += 'c';
  EXPECT_FALSE(isTaken(arguments));
  arguments.snmpCommunity = "";
  EXPECT_TRUE(isTaken(arguments));
}

TEST(WakeUpOrder, TakesSwitchesInCapitalLettersOnly) {
  WakeUpArguments arguments = good();
  arguments.isWakeOnLan = "Yes";
  EXPECT_FALSE(isTaken(arguments));
  arguments.isWakeOnLan = "NO";
  arguments.isOverRouter = "1";
  EXPECT_FALSE(isTaken(arguments));
  arguments.isOverRouter = "YES";
  EXPECT_TRUE(isTaken(arguments));
}

}  // namespace
}  // namespace kelm::wolservice
