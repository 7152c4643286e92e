// UTF-8 text, counted in UTF-16 code units.
// SPDX-License-Identifier: Apache-2.0
#include "base/utf.hpp"

#include <gtest/gtest.h>

#include <string>

namespace kelm::base {
namespace {

TEST(Utf16Length, CountsEveryCharacterOfTheBasicPlaneOnce) {
  EXPECT_EQ(utf16Length(""), 0U);
  EXPECT_EQ(utf16Length("abc"), 3U);
  EXPECT_EQ(utf16Length("\xC3\xBC"), 1U);      // U+00FC
  EXPECT_EQ(utf16Length("\xE2\x80\x9C"), 1U);  // U+201C
}

TEST(Utf16Length, CountsACharacterOutsideTheBasicPlaneTwice) {
  EXPECT_EQ(utf16Length("\xF0\x9F\x98\x80"), 2U);  // U+1F600
  EXPECT_EQ(utf16Length("a\xF0\x90\x80\x80"
                        "b"),
            4U);  // U+10000
}

TEST(Utf16Length, CountsAccentsOfTheirOwn) { EXPECT_EQ(utf16Length("e\xCC\x81"), 2U); }

TEST(Utf16Length, CountsAZeroByte) { EXPECT_EQ(utf16Length(std::string_view("a\0b", 3)), 3U); }

TEST(Utf16Length, KnowsTheEdgesOfEveryLength) {
  EXPECT_EQ(utf16Length("\x7F"), 1U);
  EXPECT_EQ(utf16Length("\xC2\x80"), 1U);          // U+0080
  EXPECT_EQ(utf16Length("\xDF\xBF"), 1U);          // U+07FF
  EXPECT_EQ(utf16Length("\xE0\xA0\x80"), 1U);      // U+0800
  EXPECT_EQ(utf16Length("\xEF\xBF\xBF"), 1U);      // U+FFFF
  EXPECT_EQ(utf16Length("\xF4\x8F\xBF\xBF"), 2U);  // U+10FFFF
}

class NotUtf8 : public testing::TestWithParam<const char*> {};

TEST_P(NotUtf8, HasNoLength) {
  EXPECT_EQ(utf16Length(GetParam()), std::nullopt);
  EXPECT_EQ(utf16Length("before" + std::string(GetParam())), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Bytes, NotUtf8,
                         testing::Values("\x80",              // a continuation byte alone
                                         "\xFC",              // ISO 8859-1
                                         "\xC3",              // cut off
                                         "\xE2\x80",          // cut off
                                         "\xF0\x9F\x98",      // cut off
                                         "\xC3(",             // no continuation byte
                                         "\xC3\xC3",          // a leading byte in its place
                                         "\xE2\x80\xC2",      // the same at the end
                                         "\xC0\xAF",          // overlong "/"
                                         "\xC1\xBF",          // overlong
                                         "\xE0\x9F\xBF",      // overlong
                                         "\xF0\x8F\xBF\xBF",  // overlong
                                         "\xED\xA0\x80",      // surrogate U+D800
                                         "\xED\xBF\xBF",      // surrogate U+DFFF
                                         "\xF4\x90\x80\x80",  // U+110000
                                         "\xF5\x80\x80\x80", "\xFF"));

TEST(FirstCharacter, IsItsBytes) {
  EXPECT_EQ(firstCharacter("ab"), "a");
  EXPECT_EQ(firstCharacter("\xC2\xA6<"), "\xC2\xA6");
  EXPECT_EQ(firstCharacter("\xE2\x80\x9C/"), "\xE2\x80\x9C");
  EXPECT_EQ(firstCharacter("\xF0\x9F\x98\x80!"), "\xF0\x9F\x98\x80");
}

}  // namespace
}  // namespace kelm::base
