// The job's language: which variable decides it, and that the PPD's texts follow it.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "job/ppd_calls.hpp"
#include "job/print_job.hpp"
#include "platform/fake/fake_platform.hpp"
#include "tests/support/child.hpp"
#include "tests/support/temporary_directory.hpp"

namespace kelm::job {
namespace {

using tests::inChild;
using Environment = std::vector<std::pair<const char*, const char*>>;

void enter(const Environment& environment) {
  for (const char* name : {"APPLE_LANGUAGE", "LANG", "LC_ALL", "LC_MESSAGES", "LC_CTYPE"}) {
    unsetenv(name);
  }
  for (const auto& [name, value] : environment) setenv(name, value, 1);
}

// The language that SetupLocale prefers.
std::string preferredIn(const Environment& environment) {
  return inChild([&] {
    enter(environment);
    platform::FakePlatform platform;
    platform.jobLanguage.preferred = "not called";
    SetupLocale();
    return platform.jobLanguage.preferred;
  });
}

TEST(SetupLocale, PrefersAppleLanguage) {
  EXPECT_EQ(preferredIn({{"APPLE_LANGUAGE", "de"}}), "de");
  EXPECT_EQ(preferredIn({{"APPLE_LANGUAGE", "de"}, {"LANG", "fr_FR"}}), "de");
}

TEST(SetupLocale, PrefersLangElse) {
  EXPECT_EQ(preferredIn({{"LANG", "fr_FR.UTF-8"}}), "fr_FR.UTF-8");
}

TEST(SetupLocale, TakesAppleLanguageAlsoWhenItIsEmpty) {
  EXPECT_EQ(preferredIn({{"APPLE_LANGUAGE", ""}, {"LANG", "fr_FR"}}), "");
}

TEST(SetupLocale, PrefersNothingWithoutEither) {
  EXPECT_EQ(preferredIn({}), "not called");
  EXPECT_EQ(preferredIn({{"LC_ALL", "de_DE"}}), "not called");
}

// The locale for LC_CTYPE after SetupLocale.
std::string localeIn(const Environment& environment) {
  return inChild([&] {
    enter(environment);
    SetupLocale();
    return std::string(std::setlocale(LC_CTYPE, nullptr));
  });
}

TEST(SetupLocale, TakesTheLocaleOfTheEnvironment) {
  EXPECT_EQ(localeIn({{"LANG", "C.UTF-8"}}), "C.UTF-8");
}

TEST(SetupLocale, LeavesTheCLocaleWithoutALanguage) {
  EXPECT_EQ(localeIn({{"LC_CTYPE", "C.UTF-8"}}), "C");
}

TEST(SetupLocale, MakesStandardErrorUnbuffered) {
  const tests::TemporaryDirectory directory;
  const std::string path = directory.path() / "error";
  inChild([&] {
    static char buffer[4096];
    if (std::freopen(path.c_str(), "w", stderr) == nullptr) return "no file";
    std::setvbuf(stderr, buffer, _IOFBF, sizeof buffer);
    enter({});
    SetupLocale();
    std::fputs("at once", stderr);
    return "";
  });
  EXPECT_EQ(tests::readFile(path), "at once");
}

// The label of a choice after the stages that the pipeline takes to localise the PPD.
std::string labelIn(const Environment& environment) {
  return inChild([&] {
    enter(environment);
    SetupLocale();
    ppd_file_t* ppd = r_ppdOpenFile(KELM_PPDS_DIR "/forms-de.ppd");
    r_ppdLocalize(ppd);
    std::string label = r_ppdFindChoice(r_ppdFindOption(ppd, "QVFormSelect1"), "Form3")->text;
    r_ppdClose(ppd);
    return label;
  });
}

constexpr char kGerman[] = "Formular Nummer 3";
constexpr char kEnglish[] = "Form sheet 3";

TEST(PpdTexts, FollowTheLanguageOfTheJob) {
  EXPECT_EQ(labelIn({{"APPLE_LANGUAGE", "de"}}), kGerman);
  EXPECT_EQ(labelIn({{"APPLE_LANGUAGE", "de_DE"}}), kGerman);
  EXPECT_EQ(labelIn({{"APPLE_LANGUAGE", "de-DE"}}), kGerman);
  EXPECT_EQ(labelIn({{"LANG", "de_DE.UTF-8"}}), kGerman);
}

TEST(PpdTexts, FollowAppleLanguageBeforeLang) {
  EXPECT_EQ(labelIn({{"APPLE_LANGUAGE", "de"}, {"LANG", "en_US.UTF-8"}}), kGerman);
  EXPECT_EQ(labelIn({{"APPLE_LANGUAGE", "en"}, {"LANG", "de_DE.UTF-8"}}), kEnglish);
}

TEST(PpdTexts, FollowTheJobWhateverElseTheEnvironmentSays) {
  EXPECT_EQ(labelIn({{"APPLE_LANGUAGE", "de"}, {"LC_ALL", "C"}}), kGerman);
  EXPECT_EQ(labelIn({{"LANG", "de_DE.UTF-8"}, {"LC_ALL", "C"}}), kGerman);
  EXPECT_EQ(labelIn({{"APPLE_LANGUAGE", "de"}, {"LC_MESSAGES", "fr_FR"}}), kGerman);
  EXPECT_EQ(labelIn({{"APPLE_LANGUAGE", "de"}, {"LANG", "C.UTF-8"}, {"LC_ALL", "C.UTF-8"}}),
            kGerman);
}

TEST(PpdTexts, AreEnglishInALanguageThatThePpdDoesNotKnow) {
  EXPECT_EQ(labelIn({{"APPLE_LANGUAGE", "fi"}}), kEnglish);
  EXPECT_EQ(labelIn({{"APPLE_LANGUAGE", "no such language"}}), kEnglish);
  EXPECT_EQ(labelIn({{"APPLE_LANGUAGE", ""}}), kEnglish);
}

}  // namespace
}  // namespace kelm::job
