// The indexed searches must find the same as plain searches of the whole text, in many small texts.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <random>

#include "ppdtext/localizer.hpp"
#include "ppdtext/ppd_text.hpp"
#include "tests/unit/ppdtext/plain_reader.hpp"
#include "tests/unit/ppdtext/test_record.hpp"

namespace kelm::ppdtext {
namespace {

constexpr int kTexts = 1500;

// The texts are put together from these pieces, most of which some pattern looks for.
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
    u"*DefaultPageSize: ",
    u"*DefaultS.ze:",
    u"*PageSize A4/Vier: \"c\"",
    u"*QVOption12 B/",
    u"\"",
    u":",
    u"*",
    u"*Size ",
    u"\u0085",
    u"\v",
    u"+#=",
    u"A.4/Vier: \"\"",
    u"*de.PageSize A.",
    u"*PageRegion",
};

constexpr std::u16string_view kKeywords[] = {u"PageSize",   u"Size", u"Si",  u"S.ze", u"A|B",
                                             u"QVOption12", u"A4",   u"K",   u"(",    u"*",
                                             u"Option",     u"+#=",  u"A.4", u"#="};

std::u16string randomText(std::mt19937& random) {
  std::u16string text;
  const std::size_t pieces = random() % 60;
  for (std::size_t i = 0; i < pieces; ++i) text += kPieces[random() % std::size(kPieces)];
  return text;
}

TEST(IndexedSearches, FindTheRangesOfTheWholeText) {
  std::mt19937 random(7);
  for (int i = 0; i < kTexts; ++i) {
    const std::u16string text = randomText(random);
    SearchBudget budget(text);
    const PPDText ppd(text, budget);
    for (const std::u16string_view keyword : kKeywords) {
      EXPECT_EQ(ppd.optionRange(keyword), plain::optionRange(text, keyword)) << toUtf8(text);
      EXPECT_EQ(ppd.groupRange(keyword), plain::groupRange(text, keyword)) << toUtf8(text);
    }
  }
}

TEST(IndexedSearches, FindTheCustomChoicesOfTheWholeText) {
  std::mt19937 random(8);
  for (int i = 0; i < kTexts; ++i) {
    const std::u16string text = randomText(random);
    SearchBudget budget(text);
    const PPDText ppd(text, budget);
    for (const std::u16string_view keyword : kKeywords) {
      const auto pattern = formatted(u"\\*Custom%@[ ]+(.*?):.*\"(.*)\"", {keyword});
      const auto expected = plain::allMatches(text, pattern);
      const auto found = ppd.customChoices(keyword);
      ASSERT_EQ(found.size(), expected.size()) << toUtf8(text);
      for (std::size_t m = 0; m < found.size(); ++m) EXPECT_EQ(found[m].groups, expected[m].groups);
    }
  }
}

std::optional<std::u16string> lastCapture(std::u16string_view text,
                                          const std::vector<Match>& matches) {
  return matches.empty() ? std::nullopt : captured(text, matches.back(), 1);
}

std::optional<std::u16string> textOf(std::u16string_view text, std::optional<TextRange> range) {
  return range ? std::optional(std::u16string(pieceOf(text, *range))) : std::nullopt;
}

// Sections of all sizes, not only those of options.
TEST(IndexedSearches, FindTheLinesOfASection) {
  std::mt19937 random(10);
  int found = 0;
  for (int i = 0; i < kTexts; ++i) {
    const std::u16string text = randomText(random);
    SearchBudget budget(text);
    const PPDText ppd(text, budget);
    const std::size_t start = random() % (text.size() + 1);
    const TextRange range{start, random() % (text.size() - start + 1)};
    const std::u16string_view section = pieceOf(text, range);
    for (const std::u16string_view keyword : kKeywords) {
      const auto choices =
          plain::allMatches(section, formatted(u"\\*%@[ ]+(.*?)/(.*?):.*\"(.*)\"", {keyword}));
      EXPECT_EQ(ppd.choices(keyword, range).size(), choices.size()) << toUtf8(text);
      const auto texts =
          plain::allMatches(section, formatted(u"\\*OpenUI.*\\*%@?/(.*):", {keyword}));
      EXPECT_EQ(textOf(text, ppd.optionText(keyword, range)), lastCapture(section, texts))
          << toUtf8(text);
      const auto defaults =
          plain::allMatches(section, formatted(u"\\*Default%@:[ ]*(.*)", {keyword}));
      EXPECT_EQ(textOf(text, ppd.optionDefault(keyword, range)), lastCapture(section, defaults))
          << toUtf8(text);
      found += static_cast<int>(choices.size() + texts.size() + defaults.size());
    }
  }
  EXPECT_GT(found, kTexts / 10);
}

TEST(IndexedSearches, FindTheTranslationsOfTheWholeText) {
  std::mt19937 random(9);
  int translated = 0;
  for (int i = 0; i < kTexts; ++i) {
    const std::u16string text = randomText(random);
    SearchBudget budget(text);
    const Localizer localizer(text, u"de", budget);
    EXPECT_EQ(localizationEnd(text, u"de", budget), plain::localizationEnd(text, u"de"));
    for (const std::u16string_view option : kKeywords) {
      for (const OptionalText choice :
           {OptionalText(), OptionalText(u"A4"), OptionalText(u"Size"), OptionalText(u"A.4")}) {
        const auto found = localizer.textFor(option, choice);
        EXPECT_EQ(found, plain::translation(text, u"de", option, choice)) << toUtf8(text);
        translated += found ? 1 : 0;
      }
    }
  }
  EXPECT_GT(translated, kTexts / 10);
}

std::string described(const std::optional<Model>& model) {
  if (!model) return "none";
  std::u16string all;
  for (const ModelGroup& group : model->groups) {
    all += u"group " + group.keyword + u"\n";
    for (const ModelOption& option : group.options) {
      all += u" option " + option.keyword + u"|" + option.text.value_or(u"-") + u"|" +
             option.defaultChoice.value_or(u"-") + u"\n";
      for (const ModelChoice& choice : option.choices) {
        all += u"  " + choice.keyword + u"|" + choice.text + u"|" + choice.code + u"\n";
      }
    }
  }
  for (const ModelAttribute& attribute : model->attributes) {
    all += u"attribute " + attribute.name + u"|" + attribute.value + u"\n";
  }
  return toUtf8(all);
}

// Whole options, so that many texts have a model.
std::u16string randomFile(std::mt19937& random) {
  constexpr std::u16string_view kLines[] = {
      u"*OpenGroup: Paper/The Paper\n",
      u"*CloseGroup: Paper\n",
      u"*OpenGroup: Paper2/More\n",
      u"*CloseGroup: Paper2\n",
      u"*OpenGroup: General/G\n",
      u"*CloseGroup: General\n",
      u"*OpenUI *Size/The Size: PickOne\n*DefaultSize: A4\n",
      u"*Size A4/Four: \"<</A 4>>\"\n",
      u"*Size A5/Five: \"\" \"x\"\n",
      u"*CloseUI: *Size\n",
      u"*OpenUI *PageRegion/R: PickOne\n*PageRegion A4/Four: \"4\"\n*CloseUI: *PageRegion \n",
      u"*OpenUI *Siz/No: PickOne\n",
      u"*CustomSize True/Own: \"code\"\n",
      u"*CustomSiz True: \"other\"\n",
      u"*DefaultSize: A5\r\n",
      u"*Name: plain\n",
      u"*Quoted: \"a\" b \"c\"\n",
      u"*JCLOpenUI *J/J: PickOne\n*J On/On: \"on\"\n"};
  std::u16string text = u"*PPD-Adobe: \"4.3\"\n";
  for (std::size_t i = random() % 25; i > 0; --i) {
    text += kLines[random() % std::size(kLines)];
    if (random() % 8 == 0) text += kPieces[random() % std::size(kPieces)];
  }
  return text;
}

TEST(IndexedSearches, GiveTheModelOfTheWholeText) {
  std::mt19937 random(11);
  int models = 0;
  for (int i = 0; i < 2 * kTexts; ++i) {
    const std::u16string text = i % 2 == 0 ? randomFile(random) : randomText(random);
    const auto expected = plain::model(text);
    EXPECT_EQ(described(modelOf(text)), described(expected)) << toUtf8(text);
    models += expected ? 1 : 0;
  }
  EXPECT_GT(models, kTexts / 10);
}

}  // namespace
}  // namespace kelm::ppdtext
