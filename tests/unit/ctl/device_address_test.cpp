// The printer's address, from the device URI of its queue.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/device_address.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelm::ctl {
namespace {

TEST(AddressOfDevice, IsTheHostOfANetworkUri) {
  EXPECT_EQ(addressOfDevice("socket://192.0.2.7:9100"), "192.0.2.7");
  EXPECT_EQ(addressOfDevice("lpd://192.0.2.7/queue"), "192.0.2.7");
  EXPECT_EQ(addressOfDevice("ipp://user@192.0.2.7:631/ipp/print?waitjob=false"), "192.0.2.7");
}

TEST(AddressOfDevice, IsAnIPv6AddressWithItsZone) {
  EXPECT_EQ(addressOfDevice("ipp://[2001:db8::7]:631/ipp/print"), "2001:db8::7");
  EXPECT_EQ(addressOfDevice("socket://[v1.fe80::1+eth0]:9100"), "fe80::1%eth0");
}

// The address is not looked up: it stays as written, even with a zone that this computer lacks.
TEST(AddressOfDevice, IsAnIPv6AddressAsItIsWritten) {
  EXPECT_EQ(addressOfDevice("ipp://[2001:DB8:0::7]/"), "2001:DB8:0::7");
  EXPECT_EQ(addressOfDevice("socket://[v1.fe80::1+nowhere]:9100"), "fe80::1%nowhere");
}

TEST(AddressOfDevice, LooksAHostNameUp) {
  EXPECT_EQ(addressOfDevice("socket://localhost:9100"), "127.0.0.1");
}

TEST(WakeUpAdvice, NamesTheDeviceUriThatWorks) {
  EXPECT_EQ(wakeUpAdvice("socket://192.0.2.7:9100", "192.0.2.7"),
            "the device URI \"socket://192.0.2.7:9100\" makes jobs take "
            "\"socket://192.0.2.7:9100\" for the address of the printer to wake; "
            "\"socket://192.0.2.7\" works");
  EXPECT_THAT(wakeUpAdvice("ipp://[fe80::1%25eth0]/ipp/print", "fe80::1%eth0"),
              testing::EndsWith("; \"ipp://[v1.fe80::1+eth0]/ipp/print\" works"));
  EXPECT_THAT(wakeUpAdvice("socket://192.0.2.7:9101", "192.0.2.7"),
              testing::EndsWith("; a device URI with a port cannot work"));
}

TEST(WakeUpAdvice, IsEmptyWhereTheWakeUpTakesTheSameAddress) {
  EXPECT_EQ(wakeUpAdvice("socket://192.0.2.7", "192.0.2.7"), "");
  EXPECT_EQ(wakeUpAdvice("lpd://192.0.2.7/queue", "192.0.2.7"), "");
  EXPECT_EQ(wakeUpAdvice("socket://[2001:db8::7]:9100", "2001:db8::7"), "");
  EXPECT_EQ(wakeUpAdvice("socket://[v1.fe80::1+eth0]:9100", "fe80::1%eth0"), "");
  EXPECT_EQ(wakeUpAdvice("usb://KELM/IJ?serial=1", "192.0.2.7"), "");
}

TEST(AddressOfDevice, IsEmptyWithoutAHostOnTheNetwork) {
  EXPECT_EQ(addressOfDevice("usb://KELM/IJ?serial=1"), "");
  EXPECT_EQ(addressOfDevice("file:/dev/null"), "");
  EXPECT_EQ(addressOfDevice("no URI"), "");
  EXPECT_EQ(addressOfDevice(""), "");
}

}  // namespace
}  // namespace kelm::ctl
