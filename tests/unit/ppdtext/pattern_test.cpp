// The bounded regular expressions.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/pattern.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelm::ppdtext {
namespace {

using testing::ElementsAre;

std::vector<TextRange> rangesOf(const std::vector<Match>& matches) {
  std::vector<TextRange> ranges;
  for (const Match& match : matches) ranges.push_back(match.whole());
  return ranges;
}

TEST(Pattern, FindsAllMatchesFromTheLeft) {
  EXPECT_THAT(rangesOf(Pattern(u"a+").allMatches(u"aa baaa")),
              ElementsAre(TextRange{0, 2}, TextRange{4, 3}));
}

TEST(Pattern, CountsInUtf16CodeUnits) {
  EXPECT_THAT(rangesOf(Pattern(u"b").allMatches(u"\U0001F5A8b")), ElementsAre(TextRange{2, 1}));
}

TEST(Pattern, TellsLettersApartUnlessToldOtherwise) {
  EXPECT_FALSE(Pattern(u"a").firstMatch(u"A"));
  EXPECT_TRUE(Pattern(u"a", Letters::kAnyCase).firstMatch(u"A"));
}

TEST(Pattern, ThatDoesNotCompileHasNoMatches) {
  const Pattern pattern(u"(a");
  EXPECT_FALSE(pattern.isValid());
  EXPECT_FALSE(pattern.firstMatch(u"(a"));
  EXPECT_THAT(pattern.allMatches(u"(a"), ElementsAre());
}

TEST(Pattern, WithoutTextIsInvalid) { EXPECT_FALSE(Pattern(u"").isValid()); }

TEST(Pattern, SearchesAnEmptyText) { EXPECT_FALSE(Pattern(u"a").firstMatch({})); }

TEST(Pattern, ThatRunsAwayHasNoMatches) {
  const Pattern pattern(u"(a+)+b");
  const std::u16string text(60, u'a');
  EXPECT_FALSE(pattern.firstMatch(text));
  EXPECT_THAT(pattern.allMatches(text), ElementsAre());
}

TEST(Pattern, ThatRunsAwayLaterHasNoMatchesEither) {
  const std::u16string text = u"ab " + std::u16string(60, u'a');
  EXPECT_THAT(Pattern(u"(a+)+b").allMatches(text), ElementsAre());
}

// A PPD of 100,000 choices: far more than any printer has.
TEST(Pattern, HasTimeForATextFullOfMatches) {
  std::u16string text;
  for (int i = 0; i < 100'000; ++i) {
    text += u"*Fold C12345/Choice number 12345 of it: \"code code code\"\n";
  }
  const Pattern pattern(uR"re(\*Fold[ ]+(.*?)/(.*?):.*\"(.*)\")re");
  EXPECT_EQ(pattern.allMatches(text).size(), 100'000U);
}

TEST(Pattern, ThatNeedsTooMuchMemoryHasNoMatches) {
  EXPECT_FALSE(Pattern(u"(a|b)*c").firstMatch(std::u16string(1 << 20, u'a') + u"c"));
}

TEST(Pattern, GivesNoRangeToAGroupThatTookNoPart) {
  const std::u16string_view text = u"b";
  const auto match = Pattern(u"(a)|(b)").firstMatch(text);
  ASSERT_TRUE(match);
  EXPECT_EQ(match->captureCount(), 2U);
  EXPECT_FALSE(captured(text, *match, 1));
  EXPECT_EQ(captured(text, *match, 2), u"b");
  EXPECT_FALSE(captured(text, *match, 3));
}

TEST(Formatted, PutsTheArgumentsInTheirOrder) {
  EXPECT_EQ(formatted(u"<%@.%@>", {u"a", u"b"}), u"<a.b>");
}

TEST(Formatted, DoesNotEscapeAndDoesNotFormatAgain) {
  EXPECT_EQ(formatted(u"%@?%@", {u"(%@)", u"."}), u"(%@)?.");
}

TEST(IsPlain, KnowsPatternCharacters) {
  EXPECT_TRUE(isPlain(u"QV_Option-12"));
  EXPECT_FALSE(isPlain(u"A.B"));
  EXPECT_FALSE(isPlain(u"A B"));
  EXPECT_FALSE(isPlain(u"Ä"));
  EXPECT_FALSE(isPlain(u""));
}

TEST(UnionOf, CountsAnEmptyRangeAtTheStartAsAPlace) {
  EXPECT_EQ(unionOf({5, 3}, {}), (TextRange{0, 8}));
  EXPECT_EQ(unionOf({5, 3}, {1, 2}), (TextRange{1, 7}));
}

}  // namespace
}  // namespace kelm::ppdtext
