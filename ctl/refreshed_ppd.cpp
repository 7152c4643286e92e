// A newly installed PPD with what a queue had set in its old one.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/refreshed_ppd.hpp"

#include <algorithm>
#include <map>
#include <span>
#include <utility>

#include "ctl/stored_state.hpp"

namespace kelm::ctl {
namespace {

using Defaults = std::map<std::string, std::string>;  // choice by keyword

// These follow the default paper and are not options.
constexpr const char* kPaperAttributes[] = {"ImageableArea", "PaperDimension"};
constexpr std::string_view kCustom = "Custom.";
constexpr std::string_view kDefault = "*Default";

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end);
  }
  return lines;
}

template <class Visit>
void forEachOption(const ppd_file_t* ppd, const Visit& visit) {
  for (const ppd_group_t& group :
       std::span(ppd->groups, static_cast<std::size_t>(ppd->num_groups))) {
    for (const ppd_option_t& option :
         std::span(group.options, static_cast<std::size_t>(group.num_options))) {
      visit(option);
    }
  }
}

bool hasChoice(const ppd_option_t& option, std::string_view choice) {
  const std::span choices(option.choices, static_cast<std::size_t>(option.num_choices));
  return std::any_of(choices.begin(), choices.end(),
                     [choice](const ppd_choice_t& each) { return choice == each.choice; });
}

// libcups adds the choice "Custom" to an option that takes custom values.
bool offers(const ppd_option_t& option, std::string_view choice) {
  return hasChoice(option,
                   choice.starts_with(kCustom) ? kCustom.substr(0, kCustom.size() - 1) : choice);
}

class Merge {
 public:
  Merge(const ppd_file_t* newPpd, ppd_file_t* oldPpd) : oldPpd_(oldPpd) {
    forEachOption(
        newPpd, [this](const ppd_option_t& option) { options_.emplace(option.keyword, &option); });
    forEachOption(oldPpd, [this](const ppd_option_t& option) { keepDefault(option); });
  }

  RefreshedPpd into(std::string_view newText) {
    result_.defaults = defaults_.size();
    addPaperAttributes();
    std::string facts = factLines();
    for (const std::string_view line : linesOf(newText)) {
      result_.text += withOwnDefault(line);
      result_.text += std::exchange(facts, {});
    }
    return std::move(result_);
  }

 private:
  void keepDefault(const ppd_option_t& old) {
    const std::string choice = old.defchoice;
    const auto found = options_.find(old.keyword);
    if (found == options_.end()) {
      result_.notes.push_back("the option " + std::string(old.keyword) +
                              " is gone; its default was " + choice);
    } else if (choice != found->second->defchoice && !offers(*found->second, choice)) {
      result_.notes.push_back("the default " + choice + " of " + old.keyword +
                              " is gone; the new one is " + found->second->defchoice);
    } else if (choice != found->second->defchoice) {
      defaults_[old.keyword] = choice;
    }
  }

  void addPaperAttributes() {
    const auto paper = defaults_.find("PageSize");
    if (paper == defaults_.end() || paper->second.starts_with(kCustom)) return;
    for (const char* attribute : kPaperAttributes) defaults_[attribute] = paper->second;
  }

  // The stored lines as CUPS writes them. A value that CUPS cannot have written is not copied into
  // a new PPD.
  std::string factLines() {
    std::string lines;
    for (const auto& [keyword, value] : storedLinesOf(oldPpd_)) {
      const bool isPlain = std::all_of(value.begin(), value.end(),
                                       [](char c) { return c > ' ' && c < 0x7F && c != '"'; });
      if (!isPlain) {
        result_.notes.push_back("the value of " + keyword + " is malformed and was left out");
        continue;
      }
      lines.append("*").append(keyword).append(": ").append(value).append("\n");
      ++result_.facts;
    }
    return lines;
  }

  std::string withOwnDefault(std::string_view line) const {
    const std::size_t colon = line.find(':');
    if (!line.starts_with(kDefault) || colon == std::string_view::npos) return std::string(line);
    const auto own =
        defaults_.find(std::string(line.substr(kDefault.size(), colon - kDefault.size())));
    if (own == defaults_.end()) return std::string(line);
    return std::string(line.substr(0, colon)) + ": " + own->second + "\n";
  }

  ppd_file_t* oldPpd_;
  std::map<std::string, const ppd_option_t*> options_;
  Defaults defaults_;
  RefreshedPpd result_;
};

}  // namespace

RefreshedPpd refreshedPpd(std::string_view newText, const ppd_file_t* newPpd, ppd_file_t* oldPpd) {
  return Merge(newPpd, oldPpd).into(newText);
}

bool haveSameLines(std::string_view one, std::string_view other) {
  std::vector<std::string_view> lines = linesOf(one);
  std::vector<std::string_view> others = linesOf(other);
  std::sort(lines.begin(), lines.end());
  std::sort(others.begin(), others.end());
  return lines == others;
}

}  // namespace kelm::ctl
