// PPD files read as text: the class with all operations, which calls the parts that do the work.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/kelm_ppd.hpp"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string_view>

#include "job/ppd_calls.hpp"
#include "platform/platform.hpp"
#include "platform/property_files.hpp"
#include "ppdtext/language.hpp"
#include "ppdtext/localizer.hpp"
#include "ppdtext/ppd_text.hpp"
#include "ppdtext/record.hpp"
#include "ppdtext/record_parts.hpp"
#include "ppdtext/text_file.hpp"
#include "ppdtext/unicode_text.hpp"

namespace kelm::ppdtext {
namespace {

constexpr const char* kUnreadable = "[Driver] PPD file open Error!!! - ";
constexpr const char* kNoPath = "(null)";

constexpr const char* kVersionFile = "/System/Library/CoreServices/SystemVersion.plist";
constexpr const char* kPreferencesInHome = "/Library/Preferences/.GlobalPreferences.plist";

// From this version on, the user's languages are in a property file.
constexpr std::int32_t kLanguagesInFile = 15;

std::vector<std::string> split(std::string_view text, char at) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == at) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

// The leading integer of `text`, 0 without one, at the limits of 32 bits.
std::int32_t integerValue(const std::string& text) {
  using Limits = std::numeric_limits<std::int32_t>;
  const long value = std::strtol(text.c_str(), nullptr, 10);
  return static_cast<std::int32_t>(std::clamp<long>(value, Limits::min(), Limits::max()));
}

// Nothing when one of the three texts that a translation line needs is absent.
std::optional<std::u16string> patternFor(OptionalText text, OptionalText language,
                                         OptionalText option, OptionalText choice) {
  if (!text || !language || !option) return std::nullopt;
  return translationPattern(*language, *option, choice);
}

bool isAbsent(const char* text) { return text == nullptr || *text == '\0'; }

// The choice that is `keyword` when both are in upper case; null also when either is not UTF-8.
ppd_choice_t* choiceInAnyCase(const ppd_option_t& option, const char* keyword) {
  const auto wanted = toUtf16(keyword);
  if (!wanted) return nullptr;
  const std::u16string wantedUpper = upperCase(*wanted);
  for (ppd_choice_t& choice : choicesOf(option)) {
    const auto own = toUtf16(choice.choice);
    if (own && upperCase(*own) == wantedUpper) return &choice;
  }
  return nullptr;
}

}  // namespace

ppd_file_t* KelmPPD::ppdOpenFile_(const char* path) {
  const auto text = readTextFile(path);
  if (!text) {
    platform::platform().systemLog->error(kUnreadable + std::string(path ? path : kNoPath));
    return nullptr;
  }
  return recordOf(*text);
}

void KelmPPD::ppdClose_(ppd_file_t* ppd) { freeRecord(ppd); }

std::vector<std::u16string> KelmPPD::groupKeyword_(std::u16string_view text) {
  SearchBudget budget(text);
  return PPDText(text, budget).groupKeywords();
}

TextRange KelmPPD::groupRange_keyword_(std::u16string_view text, std::u16string_view keyword) {
  SearchBudget budget(text);
  return PPDText(text, budget).groupRange(keyword);
}

std::u16string KelmPPD::findGroupKey_itemRange_(const GroupRanges& ranges, TextRange item) {
  return groupHolding(ranges, item);
}

std::vector<std::u16string> KelmPPD::optionKeywords_(std::u16string_view text) {
  SearchBudget budget(text);
  std::vector<std::u16string> keywords;
  for (const TextRange range : PPDText(text, budget).optionKeywords()) {
    keywords.emplace_back(pieceOf(text, range));
  }
  return keywords;
}

TextRange KelmPPD::optionRagne_keyword_(std::u16string_view text, std::u16string_view keyword) {
  SearchBudget budget(text);
  return PPDText(text, budget).optionRange(keyword);
}

ppd_attr_t* KelmPPD::ppdFindAttr_attrName_attrSpcec_(ppd_file_t* ppd, const char* name,
                                                     const char* spec) {
  if (ppd == nullptr || name == nullptr) return nullptr;
  for (ppd_attr_t* attribute : attributesOf(*ppd)) {
    if (std::string_view(attribute->name) != name) continue;
    if (isAbsent(spec) || std::string_view(attribute->spec) == spec) return attribute;
  }
  return nullptr;
}

ppd_option_t* KelmPPD::ppdFindOption_optionKey_(ppd_file_t* ppd, const char* keyword) {
  if (ppd == nullptr || keyword == nullptr) return nullptr;
  for (const ppd_group_t& group : groupsOf(*ppd)) {
    for (ppd_option_t& option : optionsOf(group)) {
      if (std::string_view(option.keyword) == keyword) return &option;
    }
  }
  return nullptr;
}

ppd_choice_t* KelmPPD::ppdFindChoice_choiceKey_(ppd_option_t* option, const char* keyword) {
  if (option == nullptr || keyword == nullptr) return nullptr;
  for (ppd_choice_t& choice : choicesOf(*option)) {
    if (std::string_view(choice.choice) == keyword) return &choice;
  }
  return nullptr;
}

std::int32_t KelmPPD::ppdMarkOption_optionKey_choiceKey_(ppd_file_t* ppd, const char* optionKeyword,
                                                         const char* choiceKeyword) {
  if (choiceKeyword == nullptr) return 0;
  const ppd_option_t* option = job::r_ppdFindOption(ppd, optionKeyword);
  if (option == nullptr) return 1;
  const ppd_choice_t* chosen = choiceInAnyCase(*option, choiceKeyword);
  if (chosen == nullptr) return 1;
  for (ppd_choice_t& choice : choicesOf(*option)) choice.marked = &choice == chosen ? 1 : 0;
  return 1;
}

void KelmPPD::ppdMarkDefaults_(ppd_file_t* ppd) {
  if (ppd == nullptr) return;
  for (const ppd_group_t& group : groupsOf(*ppd)) {
    for (const ppd_option_t& option : optionsOf(group)) {
      for (ppd_choice_t& choice : choicesOf(option)) {
        choice.marked = std::string_view(choice.choice) == option.defchoice ? 1 : 0;
      }
    }
  }
}

ppd_choice_t* KelmPPD::ppdFindMarkedChoice_optionKey_(ppd_file_t* ppd, const char* optionKeyword) {
  const ppd_option_t* option = job::r_ppdFindOption(ppd, optionKeyword);
  if (option == nullptr) return nullptr;
  for (ppd_choice_t& choice : choicesOf(*option)) {
    if (choice.marked == 1) return &choice;
  }
  return nullptr;
}

std::string KelmPPD::cupsGetPPD2_(const char* printer) {
  return KELM_CUPS_SERVERROOT "/ppd/" + std::string(printer) + ".ppd";
}

void KelmPPD::getSystemVersion_middle_minor_(std::int32_t* major, std::int32_t* middle,
                                             std::int32_t* minor) {
  const auto version = platform::propertyText(kVersionFile, "ProductVersion");
  if (!version) return;
  const std::vector<std::string> parts = split(*version, '.');
  std::int32_t* const outputs[] = {major, middle, minor};
  for (std::size_t i = 0; i < std::min(parts.size(), std::size(outputs)); ++i) {
    if (outputs[i] != nullptr) *outputs[i] = integerValue(parts[i]);
  }
}

std::vector<std::string> KelmPPD::getLanguageArrayFromGlobalPreference() {
  const platform::Platform& system = platform::platform();
  std::vector<std::string> languages;
  if (systemVersion().isAtLeast10(kLanguagesInFile)) {
    languages = platform::propertyTexts(system.homeDirectory->path() + kPreferencesInHome,
                                        "AppleLanguages");
  }
  return languages.empty() ? system.preferredLanguages->tags() : languages;
}

std::string KelmPPD::getSystemLanguage_priority_(std::int32_t form, std::size_t priority) {
  return languageInForm(getLanguageArrayFromGlobalPreference(), systemVersion(), form, priority);
}

bool KelmPPD::isSupportLanguage_ppd_(std::string_view language, ppd_file_t* ppd) {
  const ppd_attr_t* attribute = ppdFindAttr_attrName_attrSpcec_(ppd, "cupsLanguages", nullptr);
  if (attribute == nullptr || attribute->value == nullptr) return false;
  const std::string_view names = attribute->value;
  if (std::ranges::any_of(names, [](char c) { return static_cast<signed char>(c) < 0; })) {
    return false;
  }
  return std::ranges::count(split(names, ' '), language) > 0;
}

std::string KelmPPD::ppdGetLanguage_(ppd_file_t* ppd) {
  return languageForRecord(ppd, getLanguageArrayFromGlobalPreference(), systemVersion());
}

std::u16string KelmPPD::ppdGetAttributes_pattern_idx_(OptionalText text, OptionalText pattern,
                                                      std::size_t index) {
  if (!text || !pattern) return u"";
  SearchBudget budget(*text);
  const auto match = Pattern(*pattern, Letters::kAnyCase).firstMatch(*text, budget);
  return match ? captured(*text, *match, index).value_or(u"") : u"";
}

std::u16string KelmPPD::ppdLocalGetLocalize_local_key_option_(OptionalText text,
                                                              OptionalText language,
                                                              OptionalText option,
                                                              OptionalText choice) {
  return ppdGetAttributes_pattern_idx_(text, patternFor(text, language, option, choice),
                                       kTranslationGroup);
}

bool KelmPPD::isDefinePpdLocalLocalize_local_key_option_(OptionalText text, OptionalText language,
                                                         OptionalText option, OptionalText choice) {
  const auto pattern = patternFor(text, language, option, choice);
  if (!pattern) return false;
  SearchBudget budget(*text);
  return Pattern(*pattern, Letters::kAnyCase).firstMatch(*text, budget).has_value();
}

int KelmPPD::ppdLocalize_ppdPath_(ppd_file_t* ppd, const char* path) {
  const auto text = readTextFile(path);
  const auto language = toUtf16(ppdGetLanguage_(ppd));
  if (ppd != nullptr && text && language) localizeRecord(*ppd, *text, *language);
  return 0;
}

}  // namespace kelm::ppdtext
