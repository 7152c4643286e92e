// The parts of the macOS platform that also work on other systems, where they are tested too.
// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/macos_platform.hpp"

#include <gtest/gtest.h>

#include <chrono>

#include "tests/support/child.hpp"

namespace kelm::platform::macos_platform {
namespace {

using std::chrono::milliseconds;

TEST(MacosSteadyClock, SleepsAsLongAsItIsTold) {
  MacosSteadyClock clock;
  const auto before = clock.now();
  clock.sleep(milliseconds(60));
  EXPECT_GE(clock.now() - before, milliseconds(60));
  EXPECT_LT(clock.now() - before, std::chrono::seconds(20));
}

TEST(MacosSteadyClock, DoesNotSleepForNoTime) {
  MacosSteadyClock clock;
  const auto before = clock.now();
  clock.sleep(milliseconds(-1000));
  clock.sleep(milliseconds(0));
  EXPECT_LT(clock.now() - before, std::chrono::seconds(20));
}

// In its own process, because a noted SIGTERM stays noted.
TEST(MacosSteadyClock, WakesWhenTheProcessIsAskedToEnd) {
  EXPECT_EQ(tests::inChild([] {
              MacosSteadyClock clock;
              const auto before = clock.now();
              noteTermination();
              clock.sleep(std::chrono::seconds(50));
              return std::string(clock.now() - before < std::chrono::seconds(20) ? "" : "slept on");
            }),
            "");
}

TEST(MacosNameLookup, FindsAddressesInTheirDottedForm) {
  EXPECT_EQ(MacosNameLookup().firstIpv4("192.0.2.7"), (Ipv4Address{192, 0, 2, 7}));
}

TEST(MacosNameLookup, FindsThisComputer) {
  EXPECT_EQ(MacosNameLookup().firstIpv4("localhost"), (Ipv4Address{127, 0, 0, 1}));
}

TEST(MacosNameLookup, FindsNothingForNoName) {
  EXPECT_EQ(MacosNameLookup().firstIpv4(""), std::nullopt);
}

bool canBeCreated(const std::string& domain, const std::string& type, const std::string& name) {
  return MacosDnsSd().create(domain, type, name) != nullptr;
}

TEST(MacosDnsSd, TakesTheNamesOfServices) {
  EXPECT_TRUE(canBeCreated("local", "_ipp._tcp", "Printer"));
  EXPECT_TRUE(canBeCreated("local", "_pdl-datastream._tcp", "My.Printer 2 (Büro)"));
  EXPECT_TRUE(canBeCreated("local", "_snmp._udp", std::string(63, 'n')));
}

TEST(MacosDnsSd, RefusesWhatCannotNameAService) {
  EXPECT_FALSE(canBeCreated("local", "_ipp._tcp", ""));
  EXPECT_FALSE(canBeCreated("local", "_ipp._tcp", std::string(64, 'n')));
  EXPECT_FALSE(canBeCreated("local", "", "Printer"));
  EXPECT_FALSE(canBeCreated("local", "ipp", "Printer"));
  EXPECT_FALSE(canBeCreated("local", "ipp._tcp", "Printer"));
  EXPECT_FALSE(canBeCreated("local", "_._tcp", "Printer"));
  EXPECT_FALSE(canBeCreated("local", "_a._ipp._tcp", "Printer"));
  EXPECT_FALSE(canBeCreated("local", "_ipp._sctp", "Printer"));
  EXPECT_FALSE(canBeCreated("", "_ipp._tcp", "Printer"));
  EXPECT_FALSE(canBeCreated(std::string(5000, 'd'), "_ipp._tcp", "Printer"));
}

}  // namespace
}  // namespace kelm::platform::macos_platform
