// A record shown in a language, and the translation lines of a file.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/fake/fake_platform.hpp"
#include "ppdtext/localizer.hpp"
#include "tests/unit/ppdtext/test_file.hpp"
#include "tests/unit/ppdtext/test_record.hpp"

namespace kelm::ppdtext {
namespace {

using testing::ElementsAre;

std::u16string optionText(std::u16string_view text, std::u16string_view option) {
  return KelmPPD::ppdLocalGetLocalize_local_key_option_(text, u"de", option, std::nullopt);
}

std::u16string choiceText(std::u16string_view text, std::u16string_view option,
                          std::u16string_view choice) {
  return KelmPPD::ppdLocalGetLocalize_local_key_option_(text, u"de", option, choice);
}

TEST(GetAttributes, GivesTheCaptureOfTheFirstMatchInAnyCase) {
  EXPECT_EQ(KelmPPD::ppdGetAttributes_pattern_idx_(u"-AB ab", u"(a)(b)", 2), u"B");
  EXPECT_EQ(KelmPPD::ppdGetAttributes_pattern_idx_(u"-AB ab", u"(a)(b)", 0), u"AB");
}

TEST(GetAttributes, IsEmptyWithoutATextAPatternAMatchOrACapture) {
  EXPECT_EQ(KelmPPD::ppdGetAttributes_pattern_idx_(std::nullopt, u"a", 0), u"");
  EXPECT_EQ(KelmPPD::ppdGetAttributes_pattern_idx_(u"a", std::nullopt, 0), u"");
  EXPECT_EQ(KelmPPD::ppdGetAttributes_pattern_idx_(u"a", u"b", 0), u"");
  EXPECT_EQ(KelmPPD::ppdGetAttributes_pattern_idx_(u"a", u"a", 1), u"");
  EXPECT_EQ(KelmPPD::ppdGetAttributes_pattern_idx_(u"(", u"(", 0), u"");
}

TEST(GetLocalize, FindsTheLinesOfOptionsAndChoices) {
  const std::u16string_view text = u"*de.Translation Fold/Falten: \"\"\n*de.Fold One/Eins: \"\"\n";
  EXPECT_EQ(optionText(text, u"Fold"), u"Falten");
  EXPECT_EQ(choiceText(text, u"Fold", u"One"), u"Eins");
  EXPECT_EQ(choiceText(text, u"Fold", u"Two"), u"");
}

TEST(GetLocalize, EndsAtTheFirstColon) {
  EXPECT_EQ(optionText(u"*de.Translation Fold/A: B: \"\"\n", u"Fold"), u"A");
}

TEST(GetLocalize, TakesLettersOfAnyCase) {
  EXPECT_EQ(optionText(u"*DE.translation FOLD/Falten: \"\"\n", u"Fold"), u"Falten");
}

TEST(GetLocalize, TakesAnyCharacterForThePoint) {
  EXPECT_EQ(optionText(u"*de-Translation Fold/Falten: \"\"\n", u"Fold"), u"Falten");
  EXPECT_EQ(optionText(u"*de\U0001F5A8Translation Fold/Falten: \"\"\n", u"Fold"), u"Falten");
}

TEST(GetLocalize, NeedsNeitherTheAsteriskNorAYenSign) {
  EXPECT_EQ(optionText(u"de.Translation Fold/a: \"\"\n", u"Fold"), u"a");
  EXPECT_EQ(optionText(u"¥¥de.Translation Fold/b: \"\"\n", u"Fold"), u"b");
  EXPECT_EQ(
      KelmPPD::ppdGetAttributes_pattern_idx_(u"*¥¥de.Translation Fold/b: \"\"\n",
                                             translationPattern(u"de", u"Fold", std::nullopt), 1),
      u"¥¥de.Translation");
}

TEST(GetLocalize, TakesALanguageThatOnlyEndsAlike) {
  EXPECT_EQ(optionText(u"*nde.Translation Fold/a: \"\"\n", u"Fold"), u"a");
}

TEST(GetLocalize, TakesPatternCharactersInKeywordsAsAPattern) {
  EXPECT_EQ(optionText(u"*de.Translation FxLD/a: \"\"\n", u"F.ld"), u"a");
  EXPECT_EQ(choiceText(u"*de.Fold 1+1/a: \"\"\n", u"Fold", u"1+1"), u"");
  EXPECT_EQ(choiceText(u"*de.Fold 111/a: \"\"\n", u"Fold", u"1+1"), u"a");
}

TEST(GetLocalize, IsEmptyWithoutATextALanguageOrAnOption) {
  const std::u16string_view text = u"*de.Translation Fold/Falten: \"\"\n";
  const auto localized = KelmPPD::ppdLocalGetLocalize_local_key_option_;
  EXPECT_EQ(localized(std::nullopt, u"de", u"Fold", std::nullopt), u"");
  EXPECT_EQ(localized(text, std::nullopt, u"Fold", std::nullopt), u"");
  EXPECT_EQ(localized(text, u"de", std::nullopt, std::nullopt), u"");
}

TEST(IsDefineLocalize, SeesALineWithAnEmptyTranslation) {
  const std::u16string_view text = u"*de.Translation Fold/: \"\"\n*de.Fold One/: \"\"\n";
  const auto isDefined = KelmPPD::isDefinePpdLocalLocalize_local_key_option_;
  EXPECT_TRUE(isDefined(text, u"de", u"Fold", std::nullopt));
  EXPECT_TRUE(isDefined(text, u"de", u"Fold", u"One"));
  EXPECT_FALSE(isDefined(text, u"de", u"Tray", std::nullopt));
  EXPECT_FALSE(isDefined(text, u"fr", u"Fold", u"One"));
  EXPECT_FALSE(isDefined(text, u"de", std::nullopt, u"One"));
  EXPECT_FALSE(isDefined(std::nullopt, u"de", u"Fold", u"One"));
}

std::size_t endOf(std::u16string_view text, std::u16string_view language) {
  SearchBudget budget(text);
  return localizationEnd(text, language, budget);
}

TEST(LocalizationEnd, IsTheEndOfTheLastLineOfTheLanguage) {
  EXPECT_EQ(endOf(u"*de.A\n*de.B c\n*fr.D\n", u"de"), 13U);
}

TEST(LocalizationEnd, IsTheStartWithoutALine) { EXPECT_EQ(endOf(u"*fr.A\nde.B\n", u"de"), 0U); }

TEST(LocalizationEnd, TellsLettersApart) { EXPECT_EQ(endOf(u"*DE.A\n", u"de"), 0U); }

TEST(LocalizationEnd, IsTheEndForALanguageThatIsNoPattern) {
  EXPECT_EQ(endOf(u"*(.A\n--", u"("), 7U);
}

// A record of `text`, shown in German. The texts of the option Fold and of its choice One.
std::vector<std::string> shown(const std::string& translations) {
  const std::string text = "*OpenUI *Fold/Folding: PickOne\n*Fold One/First: \"1\"\n" +
                           translations + "*CloseUI: *Fold\n";
  const Record record = recordOf(text);
  localizeRecord(*record, toUtf16(text).value(), u"de");
  const ppd_option_t& option = record->groups[0].options[0];
  return {option.text, option.choices[0].text};
}

TEST(Localize, ReplacesTheTexts) {
  EXPECT_THAT(shown("*de.Translation Fold/Falten: \"\"\n*de.Fold One/Eins: \"\"\n"),
              ElementsAre("Falten", "Eins"));
}

TEST(Localize, KeepsTextsWithoutALine) {
  EXPECT_THAT(shown("*fr.Translation Fold/Pli: \"\"\n"), ElementsAre("Folding", "First"));
}

TEST(Localize, TakesTheFirstOfTwoLines) {
  EXPECT_THAT(shown("*de.Translation Fold/Falten: \"\"\n*de.Translation Fold/Falzen: \"\"\n"
                    "*de.Fold One/Eins: \"\"\n*de.Fold One/Erste: \"\"\n"),
              ElementsAre("Falten", "Eins"));
}

TEST(Localize, EmptiesATextWhoseTranslationIsEmpty) {
  EXPECT_THAT(shown("*de.Translation Fold/: \"\"\n*de.Fold One/: \"\"\n"), ElementsAre("", ""));
}

TEST(Localize, EmptiesATextWhoseLineStandsAfterTheLanguagesLastOne) {
  EXPECT_THAT(shown("*de.Fold One/Eins: \"\"\n-de.Translation Fold/Falten: \"\"\n"),
              ElementsAre("", "Eins"));
}

TEST(Localize, LeavesNothingOfALongerText) {
  EXPECT_THAT(shown("*de.Translation Fold/F: \"\"\n"), ElementsAre("F", "First"));
}

TEST(Localize, CutsATranslationAtByte80BeItWithinACharacter) {
  const std::string before(79, 'a');
  EXPECT_THAT(shown("*de.Translation Fold/" + before + "ä: \"\"\n"),
              ElementsAre(before + "\xC3", "First"));
  EXPECT_THAT(shown("*de.Fold One/" + before + "ab: \"\"\n"), ElementsAre("Folding", before + "a"));
}

TEST(Localize, TakesKeywordsWithPatternCharactersAsPatterns) {
  const std::string text =
      "*OpenUI *F.ld/Folding: PickOne\n*F.ld O.e/First: \"1\"\n*CloseUI: *F.ld\n"
      "*de.Translation Fold/Falten: \"\"\n*de.Fold One/Eins: \"\"\n";
  const Record record = recordOf(text);
  localizeRecord(*record, toUtf16(text).value(), u"de");
  EXPECT_STREQ(record->groups[0].options[0].text, "Falten");
  EXPECT_STREQ(record->groups[0].options[0].choices[0].text, "Eins");
}

constexpr const char* kFrench =
    "*cupsLanguages: \"en fr\"\n*OpenUI *Fold/Folding: PickOne\n*Fold One/First: \"1\"\n"
    "*fr.Translation Fold/: \"\"\n*fr.Fold One/Un: \"\"\n*en.Translation Fold/Fold: \"\"\n"
    "*CloseUI: *Fold\n";

class LocalizeFile : public testing::Test {
 protected:
  platform::FakePlatform system;
  TestDirectory directory;
  const std::string path = directory.write("a.ppd", kFrench);
  const Record record{KelmPPD::ppdOpenFile_(path.c_str())};
};

TEST_F(LocalizeFile, ShowsTheUsersLanguage) {
  system.preferredLanguages.preferred = {"fr-CA"};
  EXPECT_EQ(KelmPPD::ppdLocalize_ppdPath_(record.get(), path.c_str()), 0);
  EXPECT_STREQ(record->groups[0].options[0].text, "");
  EXPECT_STREQ(record->groups[0].options[0].choices[0].text, "Un");
}

TEST_F(LocalizeFile, ShowsEnglishWhereTheFileDoesNotNameTheUsersLanguage) {
  system.preferredLanguages.preferred = {"de-DE"};
  EXPECT_EQ(KelmPPD::ppdLocalize_ppdPath_(record.get(), path.c_str()), 0);
  EXPECT_STREQ(record->groups[0].options[0].text, "Fold");
}

TEST_F(LocalizeFile, ChangesNothingWithoutTheFile) {
  EXPECT_EQ(KelmPPD::ppdLocalize_ppdPath_(record.get(), "/nonexistent"), 0);
  EXPECT_STREQ(record->groups[0].options[0].text, "Folding");
}

TEST_F(LocalizeFile, TakesNoRecord) {
  EXPECT_EQ(KelmPPD::ppdLocalize_ppdPath_(nullptr, path.c_str()), 0);
}

}  // namespace
}  // namespace kelm::ppdtext
