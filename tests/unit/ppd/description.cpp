// The queue's PPD as libcups reads it.
// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/ppd/description.hpp"

#include <algorithm>
#include <span>

#include "job/ppd_calls.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::tests {
namespace {

std::string textOf(const char* text) { return text == nullptr ? std::string() : text; }

Option read(ppd_file_t* ppd, const ppd_option_t& option) {
  Option result{option.keyword, option.defchoice, {}};
  for (const ppd_choice_t& choice : std::span(option.choices, size_t(option.num_choices))) {
    if (std::string_view(choice.choice) == "Custom") continue;
    result.choices.push_back({choice.choice, textOf(choice.code)});
  }
  const std::string custom = "Custom" + result.keyword;
  if (const ppd_attr_t* code = ppdFindAttr(ppd, custom.c_str(), "True")) {
    result.choices.push_back({"Custom", textOf(code->value), true});
  }
  return result;
}

}  // namespace

std::set<std::string> Option::choiceNames() const {
  std::set<std::string> names;
  for (const Choice& choice : choices) {
    if (!choice.custom) names.insert(choice.name);
  }
  return names;
}

bool Option::hasChoice(std::string_view name) const {
  return std::ranges::any_of(choices, [&](const Choice& choice) { return choice.name == name; });
}

Description::Description(const char* path) : ppd_(job::r_ppdOpenFile(path)) {
  if (ppd_ == nullptr) return;
  for (const ppd_group_t& group : std::span(ppd_->groups, size_t(ppd_->num_groups))) {
    for (const ppd_option_t& option : std::span(group.options, size_t(group.num_options))) {
      options_.push_back(read(ppd_, option));
    }
  }
}

Description::~Description() {
  if (ppd_ != nullptr) job::r_ppdClose(ppd_);
}

const Option* Description::find(std::string_view keyword) const {
  const auto found = std::ranges::find(options_, keyword, &Option::keyword);
  return found == options_.end() ? nullptr : &*found;
}

std::vector<const Option*> Description::printerOptions() const {
  std::vector<const Option*> own;
  for (const Option& option : options_) {
    if (option.keyword.starts_with("QV")) own.push_back(&option);
  }
  return own;
}

}  // namespace kelm::tests
