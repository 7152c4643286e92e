// Names and choices in the user's language, from the PPD's own texts.
// SPDX-License-Identifier: Apache-2.0
#include "explain/labels.hpp"

#include <strings.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <span>

#include "explain/words.hpp"
#include "job/ppd_calls.hpp"
#include "stdoptions/standard_choices.hpp"

namespace kelm::explain {
namespace {

constexpr double kHundredthsPerMillimetre = 100.0;
constexpr std::string_view kCustomSize = "CUSTOMSIZE";
constexpr std::string_view kOn = "ON";

struct PlainName {
  const char* variable;
  const char* name;
};
// Settings that no option of the PPD names.
constexpr PlainName kPlainNames[] = {
    {"QVHOSTNAME", "Computer"}, {"QTY", "Copies, in sets"}, {"COPIES", "Copies, page by page"}};

const char* plainName(std::string_view variable) {
  for (const PlainName& row : kPlainNames) {
    if (variable == row.variable) return row.name;
  }
  return nullptr;
}

// libcups' own names for the paper of a job are not in the PPD.
const char* ppdKeyword(const std::string& option) {
  return option == "media" ? "PageSize" : option.c_str();
}

std::optional<int> hexDigit(char c) {
  if (c == ' ') return 0;  // a byte below 0x10 has a space for its first digit
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return std::nullopt;
}

// In the header, many choices are in capitals.
const ppd_choice_t* choiceNamed(const ppd_option_t& option, const std::string& name) {
  for (const ppd_choice_t& choice :
       std::span(option.choices, static_cast<std::size_t>(option.num_choices))) {
    if (strcasecmp(name.c_str(), choice.choice) == 0) return &choice;
  }
  return nullptr;
}

std::string groupOf(ppd_file_t* ppd, const ppd_option_t* wanted) {
  for (const ppd_group_t& group :
       std::span(ppd->groups, static_cast<std::size_t>(ppd->num_groups))) {
    const std::span options(group.options, static_cast<std::size_t>(group.num_options));
    if (std::ranges::any_of(options, [&](const ppd_option_t& one) { return &one == wanted; })) {
      return group.text;
    }
  }
  return {};
}

// The choice that has the line's value in the table. The value itself if several choices of the PPD
// have it, or none.
std::string choiceWithValue(const pjl::ValueTableView& table, const std::string& value,
                            const ppd_option_t* option) {
  const ppd_choice_t* only = nullptr;
  std::string found = value;
  for (const pjl::ValueRow& pair : table.rows) {
    if (pair.key == nullptr || pair.value == nullptr || value != pair.value) continue;
    const ppd_choice_t* choice = option == nullptr ? nullptr : choiceNamed(*option, pair.key);
    if (choice == nullptr || choice == only) continue;
    if (only != nullptr) return value;
    only = choice;
    found = pair.key;
  }
  return found;
}

// Switches that a text turns on in an ordinary job. They are named after the option of the text,
// because the options with the switches' own names are only for the maker's dialog. Their "on" is
// the text option's custom value.
constexpr std::string_view kTextSwitches[] = {"QVBARCODEAREA", "QVOWNERNAME", "QVJOBNAME",
                                              "QVSECRETNUM"};

// The option after which the line is named: the variable's own one, or that of the text.
const ppd_option_t* namingOption(ppd_file_t* ppd, const RowFacts& row, std::string_view variable,
                                 const ppd_option_t* own) {
  if (std::ranges::find(kTextSwitches, variable) == std::end(kTextSwitches)) return own;
  if (row.hasOption(own->keyword) || row.options.empty()) return own;
  const ppd_option_t* text = job::r_ppdFindOption(ppd, row.options.front().c_str());
  return text == nullptr ? own : text;
}

// The choice that the header was written from: the job's, or the one that has the value in the
// table.
std::string chosen(const RowFacts& row, const pjl::RecordedLine& line,
                   const std::vector<Option>& settled, const ppd_option_t* ppdOption) {
  for (const std::string& name : row.options) {
    if (const Option* option = findOption(settled, name)) return option->value;
  }
  return row.table ? choiceWithValue(*row.table, line.value, ppdOption) : line.value;
}

// The PPD's option that a variable of the row belongs to; null when the PPD has none.
const ppd_option_t* ppdOptionOf(ppd_file_t* ppd, const RowFacts& row, const RowFacts& plainRow,
                                std::string_view variable) {
  if (ppd == nullptr || plainName(variable) != nullptr) return nullptr;
  const std::string own(variable);
  if (own.starts_with("QV")) {
    if (const ppd_option_t* option = job::r_ppdFindOption(ppd, own.c_str())) return option;
  }
  // The maker's dialog also sends options that are not in the PPD.
  for (const RowFacts* facts : {&plainRow, &row}) {
    for (const std::string& name : facts->options) {
      if (const ppd_option_t* option = job::r_ppdFindOption(ppd, ppdKeyword(name))) return option;
    }
  }
  return nullptr;
}

struct Named {
  const ppd_option_t* option;
  const ppd_choice_t* choice;
};

// The standard option of the PPD that means this choice of an own option. Users know the standard
// option; the own option only overrides it. Nothing when there is none.
std::optional<Named> standardName(ppd_file_t* ppd, const ppd_option_t& own,
                                  const std::string& chosen) {
  for (const stdoptions::StandardOption& row : stdoptions::kStandardOptions) {
    if (row.source != stdoptions::Source::kMarked || row.own != std::string_view(own.keyword)) {
      continue;
    }
    const ppd_option_t* option = job::r_ppdFindOption(ppd, row.keyword);
    for (const stdoptions::StandardChoice& pair : row.choices) {
      if (option == nullptr || strcasecmp(pair.value, chosen.c_str()) != 0) continue;
      const ppd_choice_t* choice = choiceNamed(*option, pair.choice);
      if (choice != nullptr) return Named{option, choice};
    }
  }
  return std::nullopt;
}

// The standard option of the PPD that sets an own option; the own option if there is none.
const ppd_option_t* standardOption(ppd_file_t* ppd, const ppd_option_t& own) {
  for (const stdoptions::StandardOption& row : stdoptions::kStandardOptions) {
    if (row.source != stdoptions::Source::kMarked || row.own != std::string_view(own.keyword)) {
      continue;
    }
    if (const ppd_option_t* option = job::r_ppdFindOption(ppd, row.keyword)) return option;
  }
  return &own;
}

bool isLength(std::string_view variable, std::string_view value) {
  const bool named = variable.ends_with("WIDTH") || variable.ends_with("HEIGHT");
  if (value.starts_with('-')) value.remove_prefix(1);
  return named && isDigits(value);
}

std::string millimetres(const std::string& hundredths) {
  char text[64];
  std::snprintf(text, sizeof text, "%g mm",
                std::strtod(hundredths.c_str(), nullptr) / kHundredthsPerMillimetre);
  return text;
}

}  // namespace

std::string decodedText(std::string_view hex) {
  std::string text;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
    const auto high = hexDigit(hex[i]);
    const auto low = hexDigit(hex[i + 1]);
    if (!high || !low || hex[i + 1] == ' ') return {};
    text += static_cast<char>(*high * 16 + *low);
  }
  return hex.size() % 2 == 0 ? text : std::string();
}

Label labelOf(ppd_file_t* ppd, const RowFacts& row, const pjl::RecordedLine& line,
              const std::vector<Option>& settled) {
  Label label{line.variable, line.value};
  if (const char* name = plainName(line.variable)) label.name = name;
  const ppd_option_t* option = ppdOptionOf(ppd, row, factsOf(*line.step, false), line.variable);
  const std::string choice = chosen(row, line, settled, option);
  const ppd_choice_t* named = nullptr;
  if (option != nullptr) {
    named = choiceNamed(*option, choice);
    // The value may come from one option and be a choice of another.
    if (named == nullptr) named = choiceNamed(*option, line.value);
    if (named == nullptr && line.value == kCustomSize) named = choiceNamed(*option, "Custom");
    if (const auto standard = standardName(ppd, *option, choice)) {
      option = standard->option;
      named = standard->choice;
    } else if (named == nullptr) {
      option = standardOption(ppd, *option);
    }
    const ppd_option_t* naming = namingOption(ppd, row, line.variable, option);
    if (naming != option && line.value == kOn) {
      if (const ppd_choice_t* custom = choiceNamed(*naming, "Custom")) named = custom;
    }
    option = naming;
    label.name = option->text;
    label.group = groupOf(ppd, option);
  }
  const std::string text = row.isHexText ? decodedText(line.value) : std::string();
  if (!text.empty()) {
    label.choice = text;
  } else if (isLength(line.variable, line.value)) {
    label.choice = millimetres(line.value);
  } else if (named != nullptr && !line.value.empty()) {
    label.choice = named->text;
  }
  return label;
}

}  // namespace kelm::explain
