// Percent escapes in the names of services.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "wakeup/uri.hpp"

namespace kelm::wakeup {
namespace {

TEST(PercentDecoded, DecodesEveryEscapeInEitherCase) {
  EXPECT_EQ(percentDecoded("My%20Printer%2e%2E"), "My Printer..");
}

TEST(PercentDecoded, LeavesTextWithoutEscapesAlone) { EXPECT_EQ(percentDecoded("a+b"), "a+b"); }

TEST(PercentDecoded, DecodesOnceOnly) { EXPECT_EQ(percentDecoded("%2520"), "%20"); }

TEST(PercentDecoded, JoinsTheBytesOfOneCharacter) {
  EXPECT_EQ(percentDecoded("B%C3%BCro"), "B\xC3\xBCro");
}

TEST(PercentDecoded, GivesNothingForAnEscapeWithoutItsDigits) {
  EXPECT_FALSE(percentDecoded("a%"));
  EXPECT_FALSE(percentDecoded("a%4"));
  EXPECT_FALSE(percentDecoded("a%4x"));
  EXPECT_FALSE(percentDecoded("a%-1"));
}

TEST(PercentDecoded, GivesNothingForBytesThatAreNotUtf8) { EXPECT_FALSE(percentDecoded("%FC")); }

}  // namespace
}  // namespace kelm::wakeup
