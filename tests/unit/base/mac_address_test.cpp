// MAC addresses as text.
// SPDX-License-Identifier: Apache-2.0
#include "base/mac_address.hpp"

#include <gtest/gtest.h>

namespace kelm::base {
namespace {

TEST(MacAddress, HasSixPartsOfOneOrTwoDigits) {
  EXPECT_EQ(macAddressOf("00:80:92:aB:c:5"), (MacAddress{0x00, 0x80, 0x92, 0xAB, 0x0C, 0x05}));
}

TEST(MacAddress, OtherTextIsNone) {
  for (const char* text :
       {"", ":", ":::::", "00:11:22:33:44", "00:11:22:33:44:", "00:11:22:33:44:55:66",
        "00:11:22:33:44:55:", "00:11:22:33:44:5g", "00:11:22:33:44:+5", "00:11:22:33:44:055",
        "00:11:22:33:44: 5", "00-11-22-33-44-55", "00:11:22:33:44:0x5"}) {
    EXPECT_FALSE(macAddressOf(text)) << text;
  }
}

TEST(MacAddress, AllZeroMeansNone) {
  EXPECT_TRUE(isNone(macAddressOf("0:00:0:00:0:00").value()));
  EXPECT_FALSE(isNone(macAddressOf("00:00:00:00:00:01").value()));
}

}  // namespace
}  // namespace kelm::base
