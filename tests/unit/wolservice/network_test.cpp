// The broadcast address of a network, and where a printer is.
// SPDX-License-Identifier: Apache-2.0
#include "wolservice/network.hpp"

#include <arpa/inet.h>
#include <gtest/gtest.h>

#include <cstring>

namespace kelm::wolservice {
namespace {

in_addr address(const char* text) {
  in_addr result{};
  inet_pton(AF_INET, text, &result);
  return result;
}

std::string text(const std::optional<in_addr>& value) {
  return value ? inet_ntoa(*value) : "(none)";
}

TEST(BroadcastOf, IsTheLastAddressOfTheNetwork) {
  EXPECT_EQ(text(broadcastOf(address("10.77.0.1"), address("255.255.255.0"), {})), "10.77.0.255");
  EXPECT_EQ(text(broadcastOf(address("10.77.5.1"), address("255.255.252.0"), {})), "10.77.7.255");
  EXPECT_EQ(text(broadcastOf(address("10.77.0.1"), address("255.255.255.252"), {})), "10.77.0.3");
}

TEST(BroadcastOf, IsTheConfiguredOneWhereThereIsOne) {
  EXPECT_EQ(text(broadcastOf(address("10.77.0.1"), address("255.255.255.0"), address("10.77.0.0"))),
            "10.77.0.0");
}

TEST(BroadcastOf, IsNeverTheAddressItself) {
  EXPECT_EQ(text(broadcastOf(address("10.77.0.1"), address("255.255.255.0"), address("10.77.0.1"))),
            "10.77.0.255");
}

TEST(BroadcastOf, IsMissingInANetworkOfTwoAddresses) {
  EXPECT_EQ(text(broadcastOf(address("10.0.0.1"), address("255.255.255.254"), {})), "(none)");
  EXPECT_EQ(text(broadcastOf(address("10.0.0.1"), address("255.255.255.255"), {})), "(none)");
}

TEST(Locate, GivesAnAddressItsPort) {
  const auto found = locate("192.0.2.7");
  ASSERT_TRUE(found);
  sockaddr_in ip{};
  std::memcpy(&ip, &*found, sizeof ip);
  EXPECT_EQ(ip.sin_family, AF_INET);
  EXPECT_EQ(ntohs(ip.sin_port), 9);
  EXPECT_STREQ(inet_ntoa(ip.sin_addr), "192.0.2.7");
}

TEST(Locate, KnowsIpv6) {
  const auto found = locate("::1");
  ASSERT_TRUE(found);
  EXPECT_EQ(found->ss_family, AF_INET6);
}

TEST(NumericText, IsTheAddressWithoutThePort) {
  EXPECT_EQ(numericText(locate("192.0.2.7").value()), "192.0.2.7");
  EXPECT_EQ(numericText(locate("fd77:0::2").value()), "fd77::2");
}

TEST(NumericText, KeepsTheZone) {
  EXPECT_EQ(numericText(locate("fe80::1%lo").value()), "fe80::1%lo");
}

TEST(Locate, GivesNothingForWhatIsNoHost) { EXPECT_FALSE(locate("..")); }

// Looking up a name may take long; its address is checked later.
TEST(NumericAddress, IsThatOfANumberAlone) {
  EXPECT_TRUE(numericAddress("10.0.0.5"));
  EXPECT_TRUE(numericAddress("fe80::1"));
  EXPECT_FALSE(numericAddress("localhost"));
  EXPECT_TRUE(mayBeAPrinter("localhost"));
  EXPECT_FALSE(mayBeAPrinter("127.0.0.1"));
}

TEST(IsLoopback, IsSoForBothFamilies) {
  for (const char* address : {"127.0.0.1", "127.8.9.10", "::1", "::ffff:127.0.0.1"}) {
    EXPECT_TRUE(isLoopback(address)) << address;
  }
  for (const char* address :
       {"128.0.0.1", "224.0.0.1", "fd77::1", "fe80::1%lo", "::", "localhost"}) {
    EXPECT_FALSE(isLoopback(address)) << address;
  }
}

}  // namespace
}  // namespace kelm::wolservice
