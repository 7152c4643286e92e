// The searches of lines against searches of the whole text, over many small texts: the same
// results.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <random>

#include "ppdtext/localizer.hpp"
#include "ppdtext/ppd_text.hpp"
#include "tests/unit/ppdtext/test_record.hpp"

namespace kelm::ppdtext {
namespace {

constexpr int kTexts = 1500;

// What texts are made of; what a pattern says stands here more often than it would by chance.
constexpr std::u16string_view kPieces[] = {
    u"*OpenUI *",
    u"*OpenUI ",
    u"*CloseUI: *",
    u"*CloseUI: ",
    u"*OpenGroup: ",
    u"*CloseGroup:",
    u"*Custom",
    u"*",
    u"/",
    u"/Text: PickOne",
    u": \"code\"",
    u" True: \"c\"",
    u"\n",
    u"\n",
    u"\n",
    u"\r\n",
    u"\f",
    u"\u2028",
    u" ",
    u"  ",
    u"PageSize",
    u"PageSiz",
    u"Size",
    u"Si",
    u"S.ze",
    u"QVOption12",
    u"QVOption1",
    u"A|B",
    u"-",
    u"*de.Translation ",
    u"*de.PageSize",
    u"*de.S.ze ",
    u" A4/Vier: \"\"",
    u" A4/: \"\"",
    u"de\u00DFTranslation ",
    u"desize A4/",
    u"\u00A5de ",
    u"TRANSLATION",
    u".",
    u"\u017Fize",
    u"*d\u00E9.",
    u"\U0001F5A8",
    u"de\U0001F5A8",
    u"\u212A",
    u"deK Size/",
};

constexpr std::u16string_view kKeywords[] = {u"PageSize", u"Size",       u"Si",    u"S.ze",
                                             u"A|B",      u"QVOption12", u"A4",    u"K",
                                             u"(",        u"*",          u"Option"};

std::u16string randomText(std::mt19937& random) {
  std::u16string text;
  const std::size_t pieces = random() % 60;
  for (std::size_t i = 0; i < pieces; ++i) text += kPieces[random() % std::size(kPieces)];
  return text;
}

TextRange lastRange(std::u16string_view text, std::u16string_view pattern) {
  const auto matches = Pattern(pattern).allMatches(text);
  return matches.empty() ? TextRange() : matches.back().whole();
}

std::u16string around(const char16_t* before, std::u16string_view keyword, const char16_t* after) {
  return std::u16string(before).append(keyword).append(after);
}

// The range as the whole text gives it, step by step.
TextRange wholeTextOptionRange(std::u16string_view text, std::u16string_view keyword) {
  const TextRange open = lastRange(text, around(u"\\*OpenUI.*(\\*", keyword, u"?)/.*"));
  const TextRange close = lastRange(text, around(u"\\*CloseUI:.*", keyword, u"[ ]*\\n"));
  if (close != TextRange()) return unionOf(open, close);
  const std::u16string_view behind = text.substr(open.end());
  const auto next = Pattern(u"\\*OpenUI.*").firstMatch(behind);
  if (!next) return unionOf(open, {});
  const std::size_t place = text.find(pieceOf(behind, next->whole()));
  return unionOf(open, place == 0 ? TextRange() : TextRange{place - 1, 1});
}

TextRange wholeTextGroupRange(std::u16string_view text, std::u16string_view keyword) {
  const auto open = Pattern(around(u"\\*OpenGroup:[ ]*", keyword, u"?/.*")).firstMatch(text);
  const auto close = Pattern(around(u"\\*CloseGroup:[ ]*", keyword, u"")).firstMatch(text);
  return open && close ? unionOf(open->whole(), close->whole()) : TextRange();
}

std::optional<std::u16string> wholeTextTranslation(std::u16string_view text,
                                                   std::u16string_view option,
                                                   OptionalText choice) {
  const std::u16string_view counting = text.substr(0, localizationEnd(text, u"de"));
  const auto translated =
      KelmPPD::ppdLocalGetLocalize_local_key_option_(counting, u"de", option, choice);
  if (!translated.empty()) return translated;
  return KelmPPD::isDefinePpdLocalLocalize_local_key_option_(text, u"de", option, choice)
             ? std::optional<std::u16string>(u"")
             : std::nullopt;
}

TEST(LineSearches, FindTheRangesOfTheWholeText) {
  std::mt19937 random(7);
  for (int i = 0; i < kTexts; ++i) {
    const std::u16string text = randomText(random);
    const PPDText ppd(text);
    for (const std::u16string_view keyword : kKeywords) {
      EXPECT_EQ(ppd.optionRange(keyword), wholeTextOptionRange(text, keyword)) << toUtf8(text);
      EXPECT_EQ(ppd.groupRange(keyword), wholeTextGroupRange(text, keyword)) << toUtf8(text);
    }
  }
}

TEST(LineSearches, FindTheCustomChoicesOfTheWholeText) {
  std::mt19937 random(8);
  for (int i = 0; i < kTexts; ++i) {
    const std::u16string text = randomText(random);
    const PPDText ppd(text);
    for (const std::u16string_view keyword : kKeywords) {
      const Pattern pattern(around(u"\\*Custom", keyword, u"[ ]+(.*?):.*\"(.*)\""));
      const auto expected = pattern.allMatches(text);
      const auto found = ppd.customMatches(pattern, keyword);
      ASSERT_EQ(found.size(), expected.size()) << toUtf8(text);
      for (std::size_t m = 0; m < found.size(); ++m) EXPECT_EQ(found[m].groups, expected[m].groups);
    }
  }
}

TEST(LineSearches, FindTheTranslationsOfTheWholeText) {
  std::mt19937 random(9);
  int translated = 0;
  for (int i = 0; i < kTexts; ++i) {
    const std::u16string text = randomText(random);
    const Localizer localizer(text, u"de");
    for (const std::u16string_view option : kKeywords) {
      for (const OptionalText choice :
           {OptionalText(), OptionalText(u"A4"), OptionalText(u"Size")}) {
        const auto found = localizer.textFor(option, choice);
        EXPECT_EQ(found, wholeTextTranslation(text, option, choice)) << toUtf8(text);
        translated += found ? 1 : 0;
      }
    }
  }
  EXPECT_GT(translated, kTexts / 10);
}

}  // namespace
}  // namespace kelm::ppdtext
