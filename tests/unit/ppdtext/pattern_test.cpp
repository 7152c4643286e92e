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

std::vector<Match> allMatches(const Pattern& pattern, std::u16string_view text) {
  SearchBudget budget(text);
  return pattern.allMatches(text, budget);
}

std::optional<Match> firstMatch(const Pattern& pattern, std::u16string_view text) {
  SearchBudget budget(text);
  return pattern.firstMatch(text, budget);
}

TEST(Pattern, FindsAllMatchesFromTheLeft) {
  EXPECT_THAT(rangesOf(allMatches(Pattern(u"a+"), u"aa baaa")),
              ElementsAre(TextRange{0, 2}, TextRange{4, 3}));
}

TEST(Pattern, CountsInUtf16CodeUnits) {
  EXPECT_THAT(rangesOf(allMatches(Pattern(u"b"), u"\U0001F5A8b")), ElementsAre(TextRange{2, 1}));
}

TEST(Pattern, TellsLettersApartUnlessToldOtherwise) {
  EXPECT_FALSE(firstMatch(Pattern(u"a"), u"A"));
  EXPECT_TRUE(firstMatch(Pattern(u"a", Letters::kAnyCase), u"A"));
}

TEST(Pattern, ThatDoesNotCompileHasNoMatches) {
  const Pattern pattern(u"(a");
  EXPECT_FALSE(pattern.isValid());
  EXPECT_FALSE(firstMatch(pattern, u"(a"));
  EXPECT_THAT(allMatches(pattern, u"(a"), ElementsAre());
}

TEST(Pattern, WithoutTextIsInvalid) { EXPECT_FALSE(Pattern(u"").isValid()); }

TEST(Pattern, SearchesAnEmptyText) { EXPECT_FALSE(firstMatch(Pattern(u"a"), {})); }

TEST(Pattern, ThatRunsAwayExceedsTheBudget) {
  const std::u16string text(60, u'a');
  SearchBudget budget(text);
  EXPECT_FALSE(Pattern(u"(a+)+b").firstMatch(text, budget));
  EXPECT_TRUE(budget.isExceeded());
}

TEST(Pattern, ThatRunsAwayLaterKeepsItsMatches) {
  const std::u16string text = u"ab " + std::u16string(60, u'a');
  SearchBudget budget(text);
  EXPECT_THAT(rangesOf(Pattern(u"(a+)+b").allMatches(text, budget)), ElementsAre(TextRange{0, 2}));
  EXPECT_TRUE(budget.isExceeded());
}

TEST(Pattern, IsNotSearchedWithoutABudget) {
  SearchBudget budget(u"a");
  budget.exceed();
  EXPECT_FALSE(Pattern(u"a").firstMatch(u"a", budget));
}

TEST(SearchBudget, IsSharedBySearches) {
  const std::u16string text(1 << 16, u'b');
  SearchBudget budget(text);
  const Pattern pattern(u"a");
  for (int i = 0; i < 10'000 && !budget.isExceeded(); ++i) pattern.firstMatch(text, budget);
  EXPECT_TRUE(budget.isExceeded());
}

// A PPD of 100,000 choices: far more than any printer has.
TEST(Pattern, HasTimeForATextFullOfMatches) {
  std::u16string text;
  for (int i = 0; i < 100'000; ++i) {
    text += u"*Fold C12345/Choice number 12345 of it: \"code code code\"\n";
  }
  const Pattern pattern(uR"re(\*Fold[ ]+(.*?)/(.*?):.*\"(.*)\")re");
  EXPECT_EQ(allMatches(pattern, text).size(), 100'000U);
}

TEST(Pattern, ThatNeedsTooMuchMemoryExceedsTheBudget) {
  const std::u16string text = std::u16string(1 << 20, u'a') + u"c";
  SearchBudget budget(text);
  EXPECT_FALSE(Pattern(u"(a|b)*c").firstMatch(text, budget));
  EXPECT_TRUE(budget.isExceeded());
  SearchBudget ofAll(text);
  EXPECT_THAT(Pattern(u"(a|b)*c").allMatches(text, ofAll), ElementsAre());
  EXPECT_TRUE(ofAll.isExceeded());
}

TEST(Pattern, GivesNoRangeToAGroupThatTookNoPart) {
  const std::u16string_view text = u"b";
  const auto match = firstMatch(Pattern(u"(a)|(b)"), text);
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
  EXPECT_TRUE(isPlain(u"A=#&<B>'"));
  for (const char16_t c : std::u16string_view(u"\\^$.|?*+()[]{}/:\" \x7F\t")) {
    EXPECT_FALSE(isPlain(std::u16string(1, c))) << static_cast<int>(c);
  }
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
