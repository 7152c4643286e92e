// A PPD record in libcups' layout, built from the model of a text.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/record.hpp"

#include <cstdlib>
#include <string>
#include <utility>

#include "platform/platform.hpp"
#include "ppdtext/record_parts.hpp"
#include "ppdtext/unicode_text.hpp"

namespace kelm::ppdtext {
namespace {

constexpr const char* kNoRecord = "[Driver] PPD file memory faild!!!";
constexpr const char* kNoPart = "[Driver] PPD option memory faild!!!";

// `field` is all zero.
template <std::size_t Size>
void copyInto(char (&field)[Size], std::u16string_view text) {
  const std::string utf8 = toUtf8(text);
  wholeCharacters(utf8, Size - 1).copy(field, Size - 1);
}

// Fills one record. Every part is counted before its own parts are made, so that freeRecord can
// free a record for which memory was exhausted halfway.
class RecordBuilder {
 public:
  explicit RecordBuilder(const AllocateZeroed& allocate) : allocate_(allocate) {}

  [[nodiscard]] ppd_file_t* build(const Model& model) const {
    auto* ppd = array<ppd_file_t>(1);
    if (ppd == nullptr) {
      platform::platform().systemLog->error(kNoRecord);
    } else if (!fillGroups(*ppd, model) || !fillAttributes(*ppd, model)) {
      platform::platform().systemLog->error(kNoPart);
    }
    return ppd;
  }

 private:
  template <class Element>
  [[nodiscard]] Element* array(std::size_t count) const {
    // The attributes' array is one of pointers. NOLINTNEXTLINE(bugprone-sizeof-expression)
    return static_cast<Element*>(allocate_(count, sizeof(Element)));
  }

  // A list without elements has no array. This does not mean that memory is exhausted.
  template <class Element, class Items>
  bool makeArray(Element*& elements, const Items& items) const {
    if (items.empty()) return true;
    elements = array<Element>(items.size());
    return elements != nullptr;
  }

  bool makeText(char*& text, std::u16string_view from) const {
    const std::string utf8 = toUtf8(from);
    text = array<char>(utf8.size() + 1);
    if (text == nullptr) return false;
    utf8.copy(text, utf8.size());
    return true;
  }

  bool fillGroups(ppd_file_t& ppd, const Model& model) const {
    if (!makeArray(ppd.groups, model.groups)) return false;
    for (const ModelGroup& group : model.groups) {
      if (!fillGroup(ppd.groups[ppd.num_groups++], group)) return false;
    }
    return true;
  }

  bool fillGroup(ppd_group_t& group, const ModelGroup& from) const {
    if (!makeArray(group.options, from.options)) return false;
    for (const ModelOption& option : from.options) {
      if (!fillOption(group.options[group.num_options++], option)) return false;
    }
    return true;
  }

  bool fillOption(ppd_option_t& option, const ModelOption& from) const {
    copyInto(option.keyword, from.keyword);
    copyInto(option.defchoice, from.defaultChoice.value_or(u""));
    copyInto(option.text, from.text.value_or(u""));
    if (!makeArray(option.choices, from.choices)) return false;
    for (const ModelChoice& choice : from.choices) {
      if (!fillChoice(option.choices[option.num_choices++], choice)) return false;
    }
    return true;
  }

  bool fillChoice(ppd_choice_t& choice, const ModelChoice& from) const {
    copyInto(choice.choice, from.keyword);
    copyInto(choice.text, from.text);
    return from.code == kNoCode || makeText(choice.code, from.code);
  }

  bool fillAttributes(ppd_file_t& ppd, const Model& model) const {
    if (!makeArray(ppd.attrs, model.attributes)) return false;
    for (const ModelAttribute& attribute : model.attributes) {
      auto* made = array<ppd_attr_t>(1);
      if (made == nullptr) return false;
      ppd.attrs[ppd.num_attrs++] = made;
      copyInto(made->name, attribute.name);
      if (!makeText(made->value, attribute.value)) return false;
    }
    return true;
  }

  const AllocateZeroed& allocate_;
};

void freeChoices(ppd_option_t& option) {
  for (ppd_choice_t& choice : choicesOf(option)) std::free(choice.code);
  std::free(option.choices);
}

}  // namespace

ppd_file_t* buildRecord(const Model& model, const AllocateZeroed& allocate) {
  return RecordBuilder(allocate).build(model);
}

ppd_file_t* recordOf(std::u16string_view text, ReadProblem* problem) {
  Reading reading = readModel(readPart(text));
  if (problem != nullptr) *problem = std::move(reading.problem);
  return reading.model ? buildRecord(*reading.model, std::calloc) : nullptr;
}

void freeRecord(ppd_file_t* ppd) {
  if (ppd == nullptr) return;
  for (ppd_group_t& group : groupsOf(*ppd)) {
    for (ppd_option_t& option : optionsOf(group)) freeChoices(option);
    std::free(group.options);
  }
  std::free(ppd->groups);
  for (ppd_attr_t* attribute : attributesOf(*ppd)) {
    std::free(attribute->value);
    std::free(attribute);
  }
  std::free(ppd->attrs);
  std::free(ppd);
}

}  // namespace kelm::ppdtext
