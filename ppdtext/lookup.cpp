// Lookup and marking in PPD records that have no index of their options and attributes.
// SPDX-License-Identifier: Apache-2.0
#include <string_view>

#include "job/ppd_calls.hpp"
#include "ppdtext/kelm_ppd.hpp"
#include "ppdtext/record_parts.hpp"
#include "ppdtext/unicode_text.hpp"

namespace kelm::ppdtext {
namespace {

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
  return "/etc/cups/ppd/" + std::string(printer) + ".ppd";
}

}  // namespace kelm::ppdtext
