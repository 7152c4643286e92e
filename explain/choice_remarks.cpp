// Choices of a job's options that are wrong, and custom texts that the printer does not get.
// SPDX-License-Identifier: Apache-2.0
#include "explain/choice_remarks.hpp"

#include <cups/cups.h>

#include <algorithm>
#include <cstdlib>
#include <span>
#include <string_view>
#include <utility>

#include "base/utf.hpp"
#include "explain/words.hpp"
#include "job/custom_text.hpp"
#include "job/ppd_calls.hpp"
#include "job/text_fields.hpp"
#include "stdoptions/standard_choices.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::explain {
namespace {

constexpr const job::TextField* kTextFields[] = {
    &job::kOwnerName,        &job::kJobName,       &job::kSecretNum,   &job::kJobComment,
    &job::kBarcodeSelection, &job::kOutputProfile, &job::kFormSelect1, &job::kFormSelect2,
};

const job::TextField* textField(std::string_view key) {
  for (const job::TextField* field : kTextFields) {
    if (key == field->key) return field;
  }
  return nullptr;
}

// Why the printer does not get a custom text; empty when it does.
std::string textProblem(const Request& request, const Option& option, const job::TextField& field) {
  cups_option_t one{const_cast<char*>(option.name.c_str()),
                    const_cast<char*>(option.value.c_str())};
  job::PrintJobData job;
  job.ppd = request.ppd;
  job.numOptions = 1;
  job.options = &one;
  const std::string text = job::customText(option.value);
  if (text == field.offWord || field.namedChoice(job) != nullptr) return {};
  if (field.isValid(job)) {
    const std::size_t dot = option.value.find("Custom.");
    const bool cut = dot != std::string::npos && option.value.substr(dot + 7) != text;
    return cut ? "is cut at its full stop: the printer gets \"" + text + "\"" : "";
  }
  const auto length = base::utf16Length(text);
  if (!length) return "is not valid UTF-8, and the printer does not get it";
  if (*length < field.min || *length > field.max) {
    return "has " + std::to_string(*length) + " characters, and the printer accepts " +
           std::to_string(field.min) + " to " + std::to_string(field.max);
  }
  if (field.rule == job::kSecretNumSet) return "must contain only digits";
  if (field.rule == job::kProfileSet) {
    return R"(must contain only ASCII letters, digits, "_", "-", ".", tabs and spaces)";
  }
  for (std::string_view set = field.forbidden; !set.empty();) {
    const std::string_view character = base::firstCharacter(set);
    if (text.find(character) != std::string::npos) {
      return "has the character \"" + std::string(character) +
             "\", which the printer does not accept";
    }
    set.remove_prefix(character.size());
  }
  return "is not a text that the printer accepts";
}

// Whether the option has a custom value of this kind.
bool isCustomValue(const Request& request, const Option& option) {
  ppd_coption_t* custom = ppdFindCustomOption(request.ppd, option.name.c_str());
  if (custom == nullptr) return false;
  if (option.value.starts_with("Custom.") || option.value.starts_with('{')) return true;
  const ppd_cparam_t* parameter = ppdFirstCustomParam(custom);
  return parameter != nullptr && parameter->type == PPD_CUSTOM_INT && isNumber(option.value);
}

// Why the option cannot have this number; empty if it can. CUPS and the filter do not
// look at the limits.
std::string numberProblem(const Request& request, const Option& option,
                          const std::vector<std::string>& choices) {
  constexpr std::string_view kCustom = "Custom.";
  ppd_coption_t* custom = ppdFindCustomOption(request.ppd, option.name.c_str());
  const ppd_cparam_t* parameter = custom == nullptr ? nullptr : ppdFirstCustomParam(custom);
  if (parameter == nullptr || parameter->type != PPD_CUSTOM_INT) return {};
  const bool isTyped = option.value.starts_with(kCustom);
  const bool isChoice = isAmong(option.value, choices);
  if (isChoice || (!isTyped && !isNumber(option.value))) return {};
  const std::string number = isTyped ? option.value.substr(kCustom.size()) : option.value;
  const int least = parameter->minimum.custom_int;
  const int most = parameter->maximum.custom_int;
  const long value = std::strtol(number.c_str(), nullptr, 10);
  if (isNumber(number) && value >= least && value <= most) return {};
  return "is not a number from " + std::to_string(least) + " to " + std::to_string(most);
}

// Whether the filter reads the value itself, although the PPD's option has no such choice.
bool isReadByTheFilter(const Request& request, const Option& option) {
  if (request.isDialogJob()) return false;
  return std::ranges::any_of(stdoptions::kStandardOptions, [&](const auto& standard) {
    return standard.source == stdoptions::Source::kJob && option.name == standard.keyword &&
           std::ranges::any_of(standard.choices,
                               [&](const auto& row) { return option.value == row.choice; });
  });
}

// A choice in another letter case is right if CUPS and the filter accept it.
std::optional<Remark> unlessChoice(const Request& request, const Option& option,
                                   std::vector<std::string> choices) {
  for (const std::string& choice : choices) {
    if (choice == option.value) return std::nullopt;
    if (sameWord(choice, option.value) &&
        hasSameEffect(request, option, {option.name, choice, option.giver})) {
      return std::nullopt;
    }
  }
  std::string nearest = nearestOf(option.value, choices);
  return Remark{option, "is not a choice of this option", std::move(choices), std::move(nearest)};
}

}  // namespace

std::vector<std::string> choicesOf(const ppd_option_t& option) {
  std::vector<std::string> choices;
  for (const ppd_choice_t& choice :
       std::span(option.choices, static_cast<std::size_t>(option.num_choices))) {
    choices.emplace_back(choice.choice);
  }
  return choices;
}

bool hasSameEffect(const Request& request, const Option& option, const Option& spelled) {
  Request other = request;
  std::ranges::replace(other.options, option, spelled);
  const Outcome one = outcomeOf(other);
  const Outcome two = outcomeOf(request);
  return std::ranges::equal(one.header, two.header, [](const auto& a, const auto& b) {
    return a.variable == b.variable && a.value == b.value;
  });
}

std::optional<Remark> remarkOnChoice(const Request& request, const Option& option,
                                     const ppd_option_t& known) {
  if (const job::TextField* field = textField(option.name)) {
    const std::string problem = textProblem(request, option, *field);
    if (problem.empty()) return std::nullopt;
    return Remark{option, problem, {}, ""};
  }
  if (!request.isDialogJob()) {
    const std::string problem = numberProblem(request, option, choicesOf(known));
    if (!problem.empty()) return Remark{option, problem, {}, ""};
  }
  const auto row = rowOf(option.name, request.isDialogJob());
  const bool isCopied = row && row->kind == ValueKind::kUpperCase;
  const bool isDialogs = request.isDialogJob() && row && row->hasChoice(option.value);
  if (isCopied || isDialogs || isCustomValue(request, option) ||
      isReadByTheFilter(request, option)) {
    return std::nullopt;
  }
  return unlessChoice(request, option, choicesOf(known));
}

std::optional<Remark> remarkOnTableChoice(const Request& request, const Option& option,
                                          const RowFacts& row) {
  if (!row.table) return std::nullopt;
  std::vector<std::string> choices;
  for (const pjl::ValueRow& pair : row.table->rows) {
    if (pair.key != nullptr) choices.emplace_back(pair.key);
  }
  return unlessChoice(request, option, std::move(choices));
}

std::optional<Remark> unlessKeywords(const Option& option,
                                     const std::vector<std::string>& keywords) {
  if (keywords.empty()) return std::nullopt;
  const std::vector<std::string> words = wordsOf(option.value);
  if (words.empty()) return Remark{option, "has no value", keywords, ""};
  for (const std::string& word : words) {
    if (isAmong(word, keywords)) continue;
    std::string nearest = isNumber(word) ? "" : nearestOf(word, keywords);
    return Remark{option, "is not a choice of this option", keywords, std::move(nearest)};
  }
  if (words.size() > 1 && option.name != "finishings") {
    return Remark{option, "has several values, but the option takes only one", keywords, ""};
  }
  return std::nullopt;
}

}  // namespace kelm::explain
