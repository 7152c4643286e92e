// Texts in UTF-8 and UTF-16.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/unicode_text.hpp"

#include <gtest/gtest.h>

namespace kelm::ppdtext {
namespace {

using std::string_view_literals::operator""sv;

TEST(ToUtf16, ReadsEveryLengthOfCharacter) {
  EXPECT_EQ(toUtf16("aä用\U0001F5A8"), u"aä用\U0001F5A8");
}

TEST(ToUtf16, KeepsAZeroByte) { EXPECT_EQ(toUtf16("a\0b"sv), u"a\0b"sv); }

TEST(ToUtf16, RefusesBytesThatAreNoCharacters) {
  EXPECT_FALSE(toUtf16("Gr\xF6\xDF"));
  EXPECT_FALSE(toUtf16("\xC3"));
}

TEST(ToUtf8, WritesEveryLengthOfCharacter) {
  EXPECT_EQ(toUtf8(u"aä用\U0001F5A8"), "aä用\U0001F5A8");
}

TEST(ToUtf8, ReplacesHalfAPair) {
  const char16_t half[] = {u'a', 0xD83D, u'b'};
  EXPECT_EQ(toUtf8({half, 3}), "a\uFFFDb");
}

TEST(WholeCharacters, KeepsWhatFits) { EXPECT_EQ(wholeCharacters("abc", 3), "abc"); }

TEST(WholeCharacters, NeverCutsWithinACharacter) {
  EXPECT_EQ(wholeCharacters("ab用", 4), "ab");
  EXPECT_EQ(wholeCharacters("ab用", 5), "ab用");
  EXPECT_EQ(wholeCharacters("用", 2), "");
}

TEST(UpperCase, MayGrow) { EXPECT_EQ(upperCase(u"maß"), u"MASS"); }

TEST(FoldedCase, IsTheSameForBothCases) { EXPECT_EQ(foldedCase(u"ÄẞK"), foldedCase(u"äßk")); }

}  // namespace
}  // namespace kelm::ppdtext
