// Hex text: the printer's form of free texts.
// SPDX-License-Identifier: Apache-2.0
#include "base/hex_text.hpp"

#include <gtest/gtest.h>

namespace kelm::base {
namespace {

TEST(HexText, IsTwoUpperCaseDigitsPerByte) { EXPECT_EQ(hexText("ArialMT"), "417269616C4D54"); }

TEST(HexText, PadsBytesBelowSixteenWithASpace) { EXPECT_EQ(hexText("A\tB"), "41 942"); }

TEST(HexText, TakesBytesAsUnsigned) { EXPECT_EQ(hexText("ü"), "C3BC"); }

TEST(HexText, IsEmptyForAnEmptyText) { EXPECT_EQ(hexText(""), ""); }

TEST(HexText, KeepsAZeroByte) { EXPECT_EQ(hexText({"\0", 1}), " 0"); }

TEST(HexTextInBuffer, SendsThe2047BytesThatFit) {
  EXPECT_EQ(hexTextInBuffer(std::string(2047, 'a')).size(), 4094U);
}

TEST(HexTextInBuffer, CutsALongerTextAtAWholeByte) {
  EXPECT_EQ(hexTextInBuffer(std::string(2048, 'a')), hexText(std::string(2047, 'a')));
}

}  // namespace
}  // namespace kelm::base
