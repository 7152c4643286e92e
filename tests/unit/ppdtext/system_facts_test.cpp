// The user's languages and home directory as POSIX systems give them, and property files.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <optional>

#include "platform/fake/fake_platform.hpp"
#include "platform/property_files.hpp"
#include "platform/system_platform.hpp"
#include "tests/unit/ppdtext/test_file.hpp"

namespace kelm::platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The locale environment of a test: empty at first, and as it was when the test ends.
class LocaleEnvironment : public testing::Test {
 protected:
  LocaleEnvironment() {
    for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG", "HOME"}) {
      const char* value = std::getenv(name);
      before_[name] = value == nullptr ? std::nullopt : std::optional<std::string>(value);
      unsetenv(name);
    }
  }
  ~LocaleEnvironment() override {
    for (const auto& [name, value] : before_) {
      value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
    }
  }
  static std::vector<std::string> tags() { return systemPlatform().preferredLanguages->tags(); }
  static std::vector<std::string> tagsOf(const char* locale) {
    setenv("LANG", locale, 1);
    return tags();
  }

 private:
  std::map<std::string, std::optional<std::string>> before_;
};

TEST_F(LocaleEnvironment, IsEnglishWhenNothingIsSet) { EXPECT_THAT(tags(), ElementsAre("en")); }

TEST_F(LocaleEnvironment, IsEnglishForALocaleWithoutALanguage) {
  for (const char* locale : {".UTF-8", "@euro", "_DE"}) {
    setenv("LANG", locale, 1);
    EXPECT_THAT(tags(), ElementsAre("en")) << locale;
  }
}

TEST_F(LocaleEnvironment, IsEnglishInTheStandardLocale) {
  EXPECT_THAT(tagsOf("C"), ElementsAre("en"));
  EXPECT_THAT(tagsOf("POSIX"), ElementsAre("en"));
  EXPECT_THAT(tagsOf("C.UTF-8"), ElementsAre("en"));
}

TEST_F(LocaleEnvironment, NamesLanguageAndRegion) {
  EXPECT_THAT(tagsOf("de_DE.UTF-8"), ElementsAre("de-DE"));
  EXPECT_THAT(tagsOf("de_AT@euro"), ElementsAre("de-AT"));
  EXPECT_THAT(tagsOf("fr"), ElementsAre("fr"));
}

TEST_F(LocaleEnvironment, NamesTheScriptOfChinese) {
  EXPECT_THAT(tagsOf("zh_TW"), ElementsAre("zh-Hant-TW"));
  EXPECT_THAT(tagsOf("zh_HK.UTF-8"), ElementsAre("zh-Hant-HK"));
  EXPECT_THAT(tagsOf("zh_CN.GB18030"), ElementsAre("zh-Hans-CN"));
  EXPECT_THAT(tagsOf("zh"), ElementsAre("zh-Hans"));
}

TEST_F(LocaleEnvironment, NamesTheScriptOfAModifier) {
  EXPECT_THAT(tagsOf("sr_RS.UTF-8@latin"), ElementsAre("sr-Latn-RS"));
}

TEST_F(LocaleEnvironment, PrefersTheLocaleOfMessages) {
  setenv("LANG", "de_DE", 1);
  setenv("LC_MESSAGES", "fr_FR", 1);
  EXPECT_THAT(tags(), ElementsAre("fr-FR"));
  setenv("LC_ALL", "it_IT", 1);
  EXPECT_THAT(tags(), ElementsAre("it-IT"));
  setenv("LC_ALL", "", 1);
  EXPECT_THAT(tags(), ElementsAre("fr-FR"));
}

TEST_F(LocaleEnvironment, PrefersThePriorityListOutsideTheStandardLocale) {
  setenv("LANGUAGE", "de_AT::fr", 1);
  EXPECT_THAT(tags(), ElementsAre("en"));
  EXPECT_THAT(tagsOf("it_IT.UTF-8"), ElementsAre("de-AT", "fr", "it-IT"));
}

TEST_F(LocaleEnvironment, HasTheHomeDirectoryWithoutASlashAtItsEnd) {
  EXPECT_EQ(systemPlatform().homeDirectory->path(), "");
  setenv("HOME", "/home/someone/", 1);
  EXPECT_EQ(systemPlatform().homeDirectory->path(), "/home/someone");
}

class PropertyFile : public testing::Test {
 protected:
  PropertyFile() { system.fileRoot.root = directory.path(); }

  FakePlatform system;
  ppdtext::TestDirectory directory;
};

constexpr const char* kList =
    "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>Text</key><string>Wert</string>"
    "<key>Texts</key><array><string>a</string><true/><string>b</string></array></dict></plist>";

TEST_F(PropertyFile, HasTextsUnderKeys) {
  directory.write("a/list.plist", kList);
  EXPECT_EQ(propertyText("/a/list.plist", "Text"), "Wert");
  EXPECT_THAT(propertyTexts("/a/list.plist", "Texts"), ElementsAre("a", "b"));
}

TEST_F(PropertyFile, MayBeBinary) {
  // The dictionary {"K": "V"}: its three objects, their offsets, and the trailer.
  constexpr unsigned char kBinary[] = {
      'b', 'p', 'l', 'i', 's', 't', '0', '0', 0xD1, 1, 2, 0x51, 'K', 0x51, 'V', 8, 11,
      13,  0,   0,   0,   0,   0,   0,   1,   1,    0, 0, 0,    0,   0,    0,   0, 3,
      0,   0,   0,   0,   0,   0,   0,   0,   0,    0, 0, 0,    0,   0,    0,   15};
  directory.write("b.plist", {reinterpret_cast<const char*>(kBinary), sizeof kBinary});
  EXPECT_EQ(propertyText("/b.plist", "K"), "V");
}

// The same with a zero byte between "V" and "W" in the text.
TEST_F(PropertyFile, MayHaveATextWithAZeroByte) {
  constexpr unsigned char kBinary[] = {
      'b', 'p', 'l', 'i', 's', 't', '0', '0', 0xD1, 1, 2, 0x51, 'K', 0x53, 'V', 0, 'W', 8,
      11,  13,  0,   0,   0,   0,   0,   0,   1,    1, 0, 0,    0,   0,    0,   0, 0,   3,
      0,   0,   0,   0,   0,   0,   0,   0,   0,    0, 0, 0,    0,   0,    0,   17};
  directory.write("b.plist", {reinterpret_cast<const char*>(kBinary), sizeof kBinary});
  EXPECT_EQ(propertyText("/b.plist", "K"), "V");
}

TEST_F(PropertyFile, HasNothingUnderOtherKeysOrOfOtherKinds) {
  directory.write("list.plist", kList);
  EXPECT_FALSE(propertyText("/list.plist", "Other"));
  EXPECT_FALSE(propertyText("/list.plist", "Texts"));
  EXPECT_THAT(propertyTexts("/list.plist", "Text"), IsEmpty());
}

TEST_F(PropertyFile, HasNothingWhenItIsMissingOrNoList) {
  directory.write("text.plist", "no list");
  directory.write("array.plist", "<plist version=\"1.0\"><array/></plist>");
  EXPECT_FALSE(propertyText("/missing.plist", "Text"));
  EXPECT_FALSE(propertyText("/text.plist", "Text"));
  EXPECT_FALSE(propertyText("/array.plist", "Text"));
  EXPECT_THAT(propertyTexts("/missing.plist", "Texts"), IsEmpty());
}

}  // namespace
}  // namespace kelm::platform
