// The PPD's translations: every text that a dialog shows, in every language.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <ostream>
#include <set>
#include <span>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tests/unit/ppd/description.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::tests {
namespace {

using testing::EndsWith;

struct Language {
  const char* code;    // as the PPD prefixes its keywords
  const char* locale;  // as the environment names it
  const char* stapleOff;
  const char* form3;
  const char* byThePrinter;
  std::set<std::string> asInEnglish;  // the texts that are the same, except numbers and papers
};
void PrintTo(const Language& language, std::ostream* out) { *out << language.code; }

const Language kLanguages[] = {
    {"de",
     "de_DE.UTF-8",
     "Aus",
     "Formular 3",
     " (durch den Drucker)",
     {"Arial", "Cyan", "Layout", "Magenta", "Original", "PIN", "Standard"}},
    {"fr",
     "fr_FR.UTF-8",
     "Désactivé",
     "Formulaire 3",
     " (par l'imprimante)",
     {"8 points", "Arial", "Cyan", "Fine", "Magenta", "Orientation", "Original", "Page 1", "Photos",
      "Portrait", "Saturation", "Standard"}},
    {"ja", "ja_JP.UTF-8", "オフ", "フォーム3", "（プリンターで）", {"Arial"}},
};

class Translation : public testing::TestWithParam<Language> {
 protected:
  // libcups has one language per thread, and keeps only a PPD's translations into that language.
  template <class Check>
  void inLanguage(Check check) {
    setenv("LC_ALL", GetParam().locale, 1);
    std::thread([&] { check(Description()); }).join();
    unsetenv("LC_ALL");
  }

  void expectText(const Description& description, const std::string& keyword,
                  const std::string& choice) {
    const std::string localized = std::string(GetParam().code) + "." + keyword;
    const ppd_attr_t* attribute = ppdFindAttr(description.ppd(), localized.c_str(), choice.c_str());
    ASSERT_NE(nullptr, attribute) << localized << " " << choice << " is missing";
    EXPECT_STRNE("", attribute->text) << localized << " " << choice;
  }
};

INSTANTIATE_TEST_SUITE_P(, Translation, testing::ValuesIn(kLanguages),
                         [](const auto& language) { return std::string(language.param.code); });

TEST_P(Translation, CoversEveryGroup) {
  inLanguage([&](const Description& description) {
    const std::span groups(description.ppd()->groups, size_t(description.ppd()->num_groups));
    ASSERT_FALSE(groups.empty());
    for (const ppd_group_t& group : groups) expectText(description, "Translation", group.name);
  });
}

TEST_P(Translation, CoversEveryPreset) {
  inLanguage([&](const Description& description) {
    for (const ppd_attr_t* preset = ppdFindAttr(description.ppd(), "APPrinterPreset", nullptr);
         preset != nullptr;
         preset = ppdFindNextAttr(description.ppd(), "APPrinterPreset", nullptr)) {
      expectText(description, "APPrinterPreset", preset->spec);
    }
  });
}

TEST_P(Translation, CoversEveryOptionAndEveryChoice) {
  inLanguage([&](const Description& description) {
    for (const Option& option : description.options()) {
      expectText(description, "Translation", option.keyword);
      for (const std::string& choice : option.choiceNames()) {
        expectText(description, option.keyword, choice);
      }
    }
  });
}

TEST_P(Translation, CoversEveryCustomValue) {
  inLanguage([&](const Description& description) {
    for (const Option& option : description.options()) {
      ppd_coption_t* custom = ppdFindCustomOption(description.ppd(), option.keyword.c_str());
      if (custom == nullptr) continue;
      expectText(description, "Custom" + option.keyword, "True");
      for (ppd_cparam_t* parameter = ppdFirstCustomParam(custom); parameter != nullptr;
           parameter = ppdNextCustomParam(custom)) {
        expectText(description, "ParamCustom" + option.keyword, parameter->name);
      }
    }
  });
}

// A number, or the name of a paper that is the same in every language.
bool hasNoLanguage(const std::string& text) {
  static const std::set<std::string> kPapers = {
      "Letter",   "Legal",    "A3",       "A4",
      "A5",       "A6",       "SRA3",     "B4 (JIS)",
      "B5 (JIS)", "B6 (JIS)", "Foolscap", "Statement",
      "8-kai",    "16-kai",   "Tabloid",  "Legal (Philippines)"};
  return kPapers.contains(text) || text.find_first_not_of("+-0123456789") == std::string::npos;
}

TEST_P(Translation, IsNoEnglishText) {
  const Description english;
  std::map<std::pair<std::string, std::string>, std::string> texts;
  for (const ppd_group_t& group :
       std::span(english.ppd()->groups, size_t(english.ppd()->num_groups))) {
    texts[{"Translation", group.name}] = group.text;
  }
  for (const Option& option : english.options()) {
    ppd_option_t* own = ppdFindOption(english.ppd(), option.keyword.c_str());
    texts[{"Translation", option.keyword}] = own->text;
    for (const ppd_choice_t& choice : std::span(own->choices, size_t(own->num_choices))) {
      texts[{option.keyword, choice.choice}] = choice.text;
    }
    ppd_coption_t* custom = ppdFindCustomOption(english.ppd(), option.keyword.c_str());
    if (custom == nullptr) continue;
    texts[{"Custom" + option.keyword, "True"}] = ppdFindChoice(own, "Custom")->text;
    for (const ppd_cparam_t* parameter = ppdFirstCustomParam(custom); parameter != nullptr;
         parameter = ppdNextCustomParam(custom)) {
      texts[{"ParamCustom" + option.keyword, parameter->name}] = parameter->text;
    }
  }
  std::set<std::string> same;
  inLanguage([&](const Description& description) {
    for (const auto& [place, text] : texts) {
      const std::string keyword = std::string(GetParam().code) + "." + place.first;
      const ppd_attr_t* own = ppdFindAttr(description.ppd(), keyword.c_str(), place.second.c_str());
      if (own != nullptr && text == own->text && !hasNoLanguage(text)) same.insert(text);
    }
  });
  EXPECT_EQ(GetParam().asInEnglish, same)
      << "add the name of a paper that is the same in every language to kPapers in this file";
}

TEST_P(Translation, ReachesDialogsThroughCups) {
  inLanguage([&](const Description& description) {
    ppdLocalize(description.ppd());
    const auto label = [&](const char* keyword, const char* choice) {
      return std::string(ppdFindChoice(ppdFindOption(description.ppd(), keyword), choice)->text);
    };
    EXPECT_EQ(GetParam().stapleOff, label("QVStapleMode", "OFF"));
    EXPECT_EQ(GetParam().form3, label("QVFormSelect1", "Form3"));
  });
}

// Dialogs also show CUPS' own options for the same purpose.
TEST_P(Translation, SaysWhatThePrinterDoesWhereCupsCanDoItToo) {
  inLanguage([&](const Description& description) {
    for (const char* keyword : {"QVMultiUp", "QVOrientation", "QVReverseOrder", "QVZoomRate"}) {
      EXPECT_THAT(ppdFindOption(description.ppd(), keyword)->text, EndsWith(" (by the printer)"));
    }
    ppdLocalize(description.ppd());
    for (const char* keyword : {"QVMultiUp", "QVOrientation", "QVReverseOrder", "QVZoomRate"}) {
      EXPECT_THAT(ppdFindOption(description.ppd(), keyword)->text,
                  EndsWith(GetParam().byThePrinter));
    }
  });
}

// A form or a profile may be named by its label, so no label may mean two choices.
TEST_P(Translation, GivesNoTwoChoicesOfAnOptionOneLabel) {
  inLanguage([&](const Description& description) {
    ppdLocalize(description.ppd());
    for (const Option& option : description.options()) {
      const ppd_option_t* localized = ppdFindOption(description.ppd(), option.keyword.c_str());
      std::set<std::string> labels;
      for (const ppd_choice_t& choice :
           std::span(localized->choices, size_t(localized->num_choices))) {
        EXPECT_TRUE(labels.insert(choice.text).second) << option.keyword << ": " << choice.text;
      }
    }
  });
}

TEST(Languages, AreNamedInThePpd) {
  const Description description;
  const ppd_attr_t* languages = ppdFindAttr(description.ppd(), "cupsLanguages", nullptr);
  ASSERT_NE(nullptr, languages);
  std::string expected = "en";
  for (const Language& language : kLanguages) expected += std::string(" ") + language.code;
  EXPECT_EQ(expected, languages->value) << "each language needs a row in kLanguages in this file";
}

}  // namespace
}  // namespace kelm::tests
