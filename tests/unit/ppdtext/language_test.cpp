// Which language a PPD is shown in.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/language.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/fake/fake_platform.hpp"
#include "tests/unit/ppdtext/test_file.hpp"
#include "tests/unit/ppdtext/test_record.hpp"

namespace kelm::ppdtext {
namespace {

using testing::ElementsAre;

constexpr SystemVersion kOldest{9, 0, 0};
constexpr SystemVersion kTenTen{10, 10, 5};
constexpr SystemVersion kTenEleven{10, 11, 0};
constexpr SystemVersion kTenTwelve{10, 12, 0};
constexpr SystemVersion kEleven{11, 0, 0};

std::string shortForm(const std::string& language, const SystemVersion& version) {
  return languageInForm({language}, version, 0, 0);
}

TEST(LanguageInForm, LosesItsRegionSinceTenTwelve) {
  EXPECT_EQ(shortForm("en-US", kTenTwelve), "en");
  EXPECT_EQ(shortForm("zh-Hans-CN", kEleven), "zh-Hans");
  EXPECT_EQ(shortForm("zh-Hans", kEleven), "zh");
  EXPECT_EQ(shortForm("de", kEleven), "de");
}

TEST(LanguageInForm, KeepsEverythingInTheFullForm) {
  EXPECT_EQ(languageInForm({"zh-Hant-HK"}, kEleven, 1, 0), "zh-Hant-HK");
}

TEST(LanguageInForm, DropsTheRegionInEveryOtherForm) {
  EXPECT_EQ(languageInForm({"de-AT"}, kEleven, 2, 0), "de");
}

TEST(LanguageInForm, IsAsItIsBeforeTenTwelve) {
  EXPECT_EQ(shortForm("en-US", kTenEleven), "en-US");
  EXPECT_EQ(shortForm("zh-HK", kTenTen), "zh-HK");
  EXPECT_EQ(shortForm("zh-HK", kOldest), "zh-HK");
}

TEST(LanguageInForm, NamesHongKongsScriptOnTenEleven) {
  EXPECT_EQ(shortForm("zh-HK", kTenEleven), "zh-Hant-HK");
  EXPECT_EQ(shortForm("zh-HK", kTenTwelve), "zh");
}

TEST(LanguageInForm, TakesTheEntryOfThePriority) {
  EXPECT_EQ(languageInForm({"de-DE", "fr-FR"}, kEleven, 0, 1), "fr");
}

TEST(LanguageInForm, ThrowsBeyondTheList) {
  EXPECT_THROW(languageInForm({"de-DE"}, kEleven, 0, 1), std::out_of_range);
}

// A record whose "cupsLanguages" are `names`.
Record recordNaming(const std::string& names) {
  return recordOf("*cupsLanguages: \"" + names +
                  "\"\n*OpenUI *Fold/F: PickOne\n*Fold One/First: \"1\"\n*CloseUI: *Fold\n");
}

std::string chosen(const std::string& language, const std::string& names,
                   const SystemVersion& version = kEleven) {
  return languageForRecord(recordNaming(names).get(), {language}, version);
}

TEST(ChosenLanguage, IsTheUsersWhereThePpdHasIt) { EXPECT_EQ(chosen("de-DE", "en de fr"), "de"); }

TEST(ChosenLanguage, IsEnglishWhereThePpdHasItNot) { EXPECT_EQ(chosen("it-IT", "en de"), "en"); }

TEST(ChosenLanguage, IsEnglishWithoutTheListOfLanguages) {
  const Record record =
      recordOf("*OpenUI *Fold/F: PickOne\n*Fold One/First: \"1\"\n*CloseUI: *Fold\n");
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(languageForRecord(record.get(), {"de-DE"}, kEleven), "en");
  EXPECT_EQ(languageForRecord(nullptr, {"de-DE"}, kEleven), "en");
}

TEST(ChosenLanguage, IsEnglishForAmericanEnglishOfOldNames) {
  EXPECT_EQ(chosen("en_US", "de en"), "en");
  EXPECT_EQ(chosen("en_US", "de en_US"), "en");
}

TEST(ChosenLanguage, IsMainlandChineseForTheSimplifiedScript) {
  EXPECT_EQ(chosen("zh-Hans-CN", "zh_CN zh_TW zh_HK"), "zh_CN");
  EXPECT_EQ(chosen("zh_HANS", "zh_CN zh_TW zh_HK"), "zh_CN");
}

TEST(ChosenLanguage, IsTaiwansForTheTraditionalScript) {
  EXPECT_EQ(chosen("zh-Hant-TW", "zh_CN zh_TW zh_HK"), "zh_TW");
  EXPECT_EQ(chosen("zh_HANT", "zh_CN zh_TW zh_HK"), "zh_TW");
  EXPECT_EQ(chosen("zh-Hant_CN", "zh_CN zh_TW zh_HK", kTenTen), "zh_TW");
}

TEST(ChosenLanguage, IsHongKongsForItsFullForm) {
  EXPECT_EQ(chosen("zh-Hant-HK", "zh_CN zh_TW zh_HK"), "zh_HK");
}

TEST(ChosenLanguage, IsEnglishForHongKongWithoutItsScript) {
  EXPECT_EQ(chosen("zh-HK", "zh_CN zh_TW zh_HK"), "en");
}

TEST(SupportLanguage, ComparesWholeWords) {
  const Record record = recordNaming("en zh_CN");
  EXPECT_TRUE(KelmPPD::isSupportLanguage_ppd_("zh_CN", record.get()));
  EXPECT_FALSE(KelmPPD::isSupportLanguage_ppd_("zh", record.get()));
  EXPECT_FALSE(KelmPPD::isSupportLanguage_ppd_("EN", record.get()));
}

TEST(SupportLanguage, IsNoneInAListThatIsNotAscii) {
  EXPECT_FALSE(KelmPPD::isSupportLanguage_ppd_("en", recordNaming("en français").get()));
}

// The user's settings as property files in a directory of the test.
class SystemLanguage : public testing::Test {
 protected:
  SystemLanguage() {
    system.fileRoot.root = directory.path();
    system.preferredLanguages.preferred = {"fr-FR", "en-GB"};
  }
  void write(const std::string& path, const std::string& content) const {
    directory.write(
        path, "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict>" + content + "</dict></plist>");
  }
  void writeVersion(const std::string& version) const {
    write("System/Library/CoreServices/SystemVersion.plist",
          "<key>ProductVersion</key><string>" + version + "</string>");
  }
  void writeLanguages(const std::string& array) const {
    write("home/tester/Library/Preferences/.GlobalPreferences.plist",
          "<key>AppleLanguages</key>" + array);
  }

  platform::FakePlatform system;
  TestDirectory directory;
};

TEST_F(SystemLanguage, VersionStaysUntouchedWithoutItsFile) {
  std::int32_t major = 7;
  std::int32_t middle = 8;
  std::int32_t minor = 9;
  KelmPPD::getSystemVersion_middle_minor_(&major, &middle, &minor);
  EXPECT_THAT((std::vector{major, middle, minor}), ElementsAre(7, 8, 9));
}

TEST_F(SystemLanguage, VersionStaysUntouchedWithoutItsKey) {
  write("System/Library/CoreServices/SystemVersion.plist",
        "<key>ProductVersion</key><integer>12</integer>");
  std::int32_t major = 7;
  KelmPPD::getSystemVersion_middle_minor_(&major, nullptr, nullptr);
  EXPECT_EQ(major, 7);
}

TEST_F(SystemLanguage, VersionHasThreeParts) {
  writeVersion("10.14.6");
  std::int32_t major = 0;
  std::int32_t middle = 0;
  std::int32_t minor = 0;
  KelmPPD::getSystemVersion_middle_minor_(&major, &middle, &minor);
  EXPECT_THAT((std::vector{major, middle, minor}), ElementsAre(10, 14, 6));
}

TEST_F(SystemLanguage, VersionStoresOnlyThePartsItHas) {
  writeVersion("12.3");
  std::int32_t middle = 0;
  std::int32_t minor = 9;
  KelmPPD::getSystemVersion_middle_minor_(nullptr, &middle, &minor);
  EXPECT_THAT((std::vector{middle, minor}), ElementsAre(3, 9));
}

TEST_F(SystemLanguage, VersionPartsAreLeadingIntegers) {
  writeVersion("13b.x.99999999999");
  std::int32_t major = 0;
  std::int32_t middle = 7;
  std::int32_t minor = 0;
  KelmPPD::getSystemVersion_middle_minor_(&major, &middle, &minor);
  EXPECT_THAT((std::vector{major, middle, minor}), ElementsAre(13, 0, 2147483647));
}

TEST_F(SystemLanguage, ListIsThePlatformsWithoutPreferences) {
  EXPECT_THAT(KelmPPD::getLanguageArrayFromGlobalPreference(), ElementsAre("fr-FR", "en-GB"));
}

TEST_F(SystemLanguage, ListIsThatOfThePreferencesWithoutAVersion) {
  writeLanguages("<array><string>de-DE</string><integer>1</integer><string>en</string></array>");
  EXPECT_THAT(KelmPPD::getLanguageArrayFromGlobalPreference(), ElementsAre("de-DE", "en"));
}

TEST_F(SystemLanguage, ListIsThatOfThePreferencesSinceTenFifteen) {
  writeLanguages("<array><string>de-DE</string></array>");
  writeVersion("10.15");
  EXPECT_THAT(KelmPPD::getLanguageArrayFromGlobalPreference(), ElementsAre("de-DE"));
}

TEST_F(SystemLanguage, ListIsThePlatformsBeforeTenFifteen) {
  writeLanguages("<array><string>de-DE</string></array>");
  writeVersion("10.14.6");
  EXPECT_THAT(KelmPPD::getLanguageArrayFromGlobalPreference(), ElementsAre("fr-FR", "en-GB"));
}

TEST_F(SystemLanguage, ListIsThePlatformsWhenThePreferencesNameNone) {
  writeLanguages("<string>de-DE</string>");
  EXPECT_THAT(KelmPPD::getLanguageArrayFromGlobalPreference(), ElementsAre("fr-FR", "en-GB"));
}

TEST_F(SystemLanguage, StartsFromVersionElevenWithoutTheVersionsFile) {
  EXPECT_EQ(KelmPPD::getSystemLanguage_priority_(0, 1), "en");
  EXPECT_EQ(KelmPPD::getSystemLanguage_priority_(1, 1), "en-GB");
}

TEST_F(SystemLanguage, FollowsTheVersionOfTheFile) {
  writeVersion("10.11.6");
  EXPECT_EQ(KelmPPD::getSystemLanguage_priority_(0, 1), "en-GB");
}

TEST_F(SystemLanguage, IsChosenForARecord) {
  EXPECT_EQ(KelmPPD::ppdGetLanguage_(recordNaming("en fr").get()), "fr");
}

TEST_F(SystemLanguage, IsTaiwansUnlessTheFullFormIsHongKongs) {
  const Record record = recordNaming("zh_CN zh_TW zh_HK");
  system.preferredLanguages.preferred = {"zh-Hant-TW"};
  EXPECT_EQ(KelmPPD::ppdGetLanguage_(record.get()), "zh_TW");
  system.preferredLanguages.preferred = {"zh-Hant-HK"};
  EXPECT_EQ(KelmPPD::ppdGetLanguage_(record.get()), "zh_HK");
}

}  // namespace
}  // namespace kelm::ppdtext
