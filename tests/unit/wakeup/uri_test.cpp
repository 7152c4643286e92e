// The host of a device URI.
// SPDX-License-Identifier: Apache-2.0
#include "wakeup/uri.hpp"

#include <gtest/gtest.h>

namespace kelm::wakeup {
namespace {

std::string netLocation(std::string_view uri) {
  const auto host = hostOfUri(uri);
  return host ? host->netLocation() : "(none)";
}

TEST(HostOfUri, IsTheHostWithItsPort) {
  EXPECT_EQ(netLocation("lpd://10.0.0.5/queue"), "10.0.0.5");
  EXPECT_EQ(netLocation("socket://printer.example:9100"), "printer.example:9100");
}

TEST(HostOfUri, LeavesTheUserOut) { EXPECT_EQ(netLocation("lpd://me:x@10.0.0.5/q"), "10.0.0.5"); }

TEST(HostOfUri, LeavesEscapesAsTheyAre) {
  EXPECT_EQ(hostOfUri("dnssd://My%20Printer._ipp._tcp.local/")->host,
            "My%20Printer._ipp._tcp.local");
}

TEST(HostOfUri, LeavesTheBracketsOn) {
  EXPECT_EQ(netLocation("ipp://[fe80::1]:631/ipp/print"), "[fe80::1]:631");
  EXPECT_EQ(netLocation("ipp://[v1.fe80::1+en0]/"), "[v1.fe80::1+en0]");
}

TEST(HostOfUri, IsMissingWhereTheUriHasNone) {
  EXPECT_EQ(netLocation("file:/dev/null"), "(none)");
  EXPECT_EQ(netLocation(""), "(none)");
}

TEST(HostOfUri, IsMissingInWhatIsNoUri) {
  EXPECT_EQ(netLocation("lpd://10.0.0.5/a queue"), "(none)");
  EXPECT_EQ(netLocation("lpd://[10.0.0.5/"), "(none)");
}

TEST(IsUri, TakesRelativeReferencesToo) {
  EXPECT_TRUE(isUri("printer"));
  EXPECT_FALSE(isUri("a b"));
  EXPECT_FALSE(isUri("%zz"));
}

}  // namespace
}  // namespace kelm::wakeup
