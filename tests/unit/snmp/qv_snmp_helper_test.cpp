// The parts of the helper that need no printer; the others are tested against a real agent.
// SPDX-License-Identifier: Apache-2.0
#include "snmp/qv_snmp_helper.hpp"

#include <gmock/gmock.h>

namespace kelm::snmp {
namespace {

using testing::IsEmpty;

constexpr char kNoPrinter[] = "..:";  // has a colon and is no IPv6 address: never opened
constexpr char kCommunity[] = "public";

std::string converted(const char* address) {
  std::string destination = "what was there before";
  QVSNMPHelper::getConvertedAddress_sourceAddr_(destination, address);
  return destination;
}

TEST(ConvertedAddress, OfAnIPv6AddressNamesTransportAndPort) {
  EXPECT_EQ(converted("fe80::1%en0"), "udp6:fe80::1%en0:161");
  EXPECT_EQ(converted("::1"), "udp6:::1:161");
}

TEST(ConvertedAddress, OfAnIPv4AddressOrAHostNameIsTheAddress) {
  EXPECT_EQ(converted("192.168.1.5"), "192.168.1.5");
  EXPECT_EQ(converted("printer.example"), "printer.example");
  EXPECT_EQ(converted(""), "");
}

TEST(SharedBoxes, RefuseCountsThatTheTableDoesNotHave) {
  for (const std::int64_t count :
       {INT64_MIN, std::int64_t{-1}, std::int64_t{0}, std::int64_t{101}, INT64_MAX}) {
    QVSNMPHelper::sharedBoxStateArray = {"1"};
    QVSNMPHelper::sharedBoxNameArray = {"old"};
    EXPECT_FALSE(QVSNMPHelper::snmpGetSharedBoxStateForIPAddress_community_totalCount_(
        kNoPrinter, kCommunity, count));
    EXPECT_FALSE(QVSNMPHelper::snmpGetSharedBoxNameForIPAddress_community_totalCount_(
        kNoPrinter, kCommunity, count));
    EXPECT_THAT(QVSNMPHelper::sharedBoxStateArray, IsEmpty());
    EXPECT_THAT(QVSNMPHelper::sharedBoxNameArray, IsEmpty());
  }
}

TEST(FailedOpen, LeavesNothingOfTheLastAnswer) {
  QVSNMPHelper::formStateArray = {"1"};
  EXPECT_FALSE(QVSNMPHelper::snmpGetFormStateForIPAddress_community_(kNoPrinter, kCommunity));
  EXPECT_THAT(QVSNMPHelper::formStateArray, IsEmpty());
}

TEST(FailedOpen, MeansNoLists) {
  EXPECT_EQ(QVSNMPHelper::getValidatedFormNameArrayForIPAddress_community_(kNoPrinter, kCommunity),
            std::nullopt);
  EXPECT_EQ(
      QVSNMPHelper::getValidatedBarcodeAreaNameArrayForIPAddress_community_(kNoPrinter, kCommunity),
      std::nullopt);
  EXPECT_EQ(QVSNMPHelper::getValidatedColorProfileForIPAddress_community_(kNoPrinter, kCommunity),
            std::nullopt);
  EXPECT_EQ(QVSNMPHelper::getValidatedSharedBoxNameArrayForIPAddress_community_totalCount_(
                kNoPrinter, kCommunity, 30),
            std::nullopt);
  EXPECT_EQ(QVSNMPHelper::getValidatedSharedBoxStateArrayForIPAddress_community_totalCount_(
                kNoPrinter, kCommunity, 100),
            std::nullopt);
}

TEST(FailedOpen, MeansThirtySharedBoxesNoLogInAndNoMacAddress) {
  EXPECT_EQ(QVSNMPHelper::snmpGetSharedBoxEntryForIPAddress_community_(kNoPrinter, kCommunity), 30);
  EXPECT_FALSE(QVSNMPHelper::getAdminLoginModeEnabled_community_(kNoPrinter, kCommunity));
  EXPECT_EQ(QVSNMPHelper::getMacAddress_community_(kNoPrinter, kCommunity), std::nullopt);
}

TEST(FailedOpen, IsStatusOneOfTheSleepModeQuery) {
  std::int32_t mode = 5;
  EXPECT_EQ(QVSNMPHelper::getSleepMode_community_sleepMode_(kNoPrinter, kCommunity, &mode), 1);
  EXPECT_EQ(mode, -1);
}

}  // namespace
}  // namespace kelm::snmp
