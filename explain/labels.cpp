// Names and choices in the user's language, from the PPD's own texts.
// SPDX-License-Identifier: Apache-2.0
#include "explain/labels.hpp"

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <span>

#include "job/ppd_calls.hpp"

namespace kelm::explain {
namespace {

constexpr double kHundredthsPerMillimetre = 100.0;

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

const ppd_choice_t* choiceNamed(const ppd_option_t& option, std::string_view name) {
  for (const ppd_choice_t& choice :
       std::span(option.choices, static_cast<std::size_t>(option.num_choices))) {
    if (name == choice.choice) return &choice;
  }
  return nullptr;
}

// The choice that the header was written from: the job's, or the one that has the value in the
// table.
std::string chosen(const RowFacts& row, const pjl::RecordedLine& line,
                   const std::vector<Option>& settled) {
  for (const std::string& name : row.options) {
    if (const Option* option = findOption(settled, name)) return option->value;
  }
  if (!row.table) return line.value;
  for (const pjl::ValueRow& pair : row.table->rows) {
    if (pair.value != nullptr && line.value == pair.value) return pair.key;
  }
  return line.value;
}

bool isLength(std::string_view variable, std::string_view value) {
  const bool named = variable.ends_with("WIDTH") || variable.ends_with("HEIGHT");
  return named && !value.empty() && value.find_first_not_of("0123456789") == std::string::npos;
}

std::string millimetres(const std::string& hundredths) {
  char text[64];
  std::snprintf(text, sizeof text, "%g mm",
                std::strtod(hundredths.c_str(), nullptr) / kHundredthsPerMillimetre);
  return text;
}

}  // namespace

const ppd_option_t* ppdOptionOf(ppd_file_t* ppd, const RowFacts& row, std::string_view variable) {
  if (ppd == nullptr || plainName(variable) != nullptr) return nullptr;
  const std::string own(variable);
  if (own.starts_with("QV")) {
    if (const ppd_option_t* option = job::r_ppdFindOption(ppd, own.c_str())) return option;
  }
  for (const std::string& name : row.options) {
    if (const ppd_option_t* option = job::r_ppdFindOption(ppd, ppdKeyword(name))) return option;
  }
  return nullptr;
}

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

Label labelOf(const ppd_option_t* option, const RowFacts& row, const pjl::RecordedLine& line,
              const std::vector<Option>& settled) {
  Label label{line.variable, line.value};
  if (const char* name = plainName(line.variable)) label.name = name;
  if (option != nullptr) label.name = option->text;
  if (row.isHexText) {
    const std::string text = decodedText(line.value);
    if (!text.empty()) label.choice = text;
    return label;
  }
  if (isLength(line.variable, line.value)) {
    label.choice = millimetres(line.value);
    return label;
  }
  const ppd_choice_t* choice =
      option == nullptr ? nullptr : choiceNamed(*option, chosen(row, line, settled));
  if (choice != nullptr && !line.value.empty()) label.choice = choice->text;
  return label;
}

}  // namespace kelm::explain
