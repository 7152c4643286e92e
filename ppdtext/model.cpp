// What a PPD offers, as found in its text: the stage between the text and libcups' record.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/model.hpp"

#include <iterator>
#include <map>
#include <utility>

#include "ppdtext/pattern.hpp"
#include "ppdtext/ppd_text.hpp"

namespace kelm::ppdtext {
namespace {

constexpr std::u16string_view kEndOfReading = u"*CloseGroup: Advanced";

constexpr std::u16string_view kOptionText = uR"re(\*OpenUI.*\*%@?/(.*):)re";
constexpr std::u16string_view kOptionDefault = uR"re(\*Default%@:[ ]*(.*))re";
constexpr std::u16string_view kChoice = uR"re(\*%@[ ]+(.*?)/(.*?):.*\"(.*)\")re";
constexpr std::u16string_view kCustomChoice = uR"re(\*Custom%@[ ]+(.*?):.*\"(.*)\")re";

// The kinds of choice lines are told apart by their capture groups, and a keyword with groups of
// its own changes the kind.
constexpr std::size_t kChoiceCaptures = 3;
constexpr std::size_t kCustomChoiceCaptures = 2;

constexpr std::u16string_view kCustom = u"Custom";

// CUPS' twin of "PageSize"; its custom sizes have no line of their own.
constexpr std::u16string_view kPageRegion = u"PageRegion";

const Pattern& attributeLine() {
  static const Pattern pattern(uR"re(\*([^ ]*?):[ ]*(.*))re");
  return pattern;
}

std::optional<std::u16string> lastCapture(std::u16string_view section, std::u16string_view format,
                                          std::u16string_view keyword) {
  const auto matches = Pattern(formatted(format, {keyword})).allMatches(section);
  return matches.empty() ? std::nullopt : captured(section, matches.back(), 1);
}

std::optional<ModelChoice> choiceOf(std::u16string_view text, const Match& match) {
  std::optional<std::u16string> keyword(kCustom);
  std::optional<std::u16string> shown(kCustom);
  std::optional<std::u16string> code;
  if (match.captureCount() == kChoiceCaptures) {
    keyword = captured(text, match, 1);
    shown = captured(text, match, 2);
    code = captured(text, match, kChoiceCaptures);
  } else if (match.captureCount() == kCustomChoiceCaptures) {
    code = captured(text, match, kCustomChoiceCaptures);
  }
  if (!keyword || !shown || !code) return std::nullopt;
  return ModelChoice{std::move(*keyword), std::move(*shown), std::move(*code)};
}

void appendChoices(std::vector<ModelChoice>& choices, std::u16string_view text,
                   const std::vector<Match>& matches) {
  for (const Match& match : matches) {
    if (auto choice = choiceOf(text, match)) choices.push_back(std::move(*choice));
  }
}

// The option's choices: those of its section, then the custom ones of the whole text. None when
// there is no line of either kind.
std::optional<std::vector<ModelChoice>> choicesOf(const PPDText& ppd, std::u16string_view section,
                                                  std::u16string_view keyword) {
  const auto own = Pattern(formatted(kChoice, {keyword})).allMatches(section);
  const auto custom = ppd.customMatches(Pattern(formatted(kCustomChoice, {keyword})), keyword);
  if (own.empty() && custom.empty()) return std::nullopt;
  std::vector<ModelChoice> choices;
  appendChoices(choices, section, own);
  appendChoices(choices, ppd.text(), custom);
  if (keyword == kPageRegion) {
    choices.push_back({std::u16string(kCustom), std::u16string(kCustom), std::u16string(kNoCode)});
  }
  return choices;
}

std::optional<ModelOption> optionOf(const PPDText& ppd, TextRange range,
                                    const std::u16string& keyword) {
  const std::u16string_view section = pieceOf(ppd.text(), range);
  auto choices = choicesOf(ppd, section, keyword);
  if (!choices) return std::nullopt;
  return ModelOption{keyword, lastCapture(section, kOptionText, keyword),
                     lastCapture(section, kOptionDefault, keyword), std::move(*choices)};
}

using OptionsByGroup = std::map<std::u16string, std::vector<ModelOption>>;

// None when an option of the file has no line of a choice: such a file is not read at all.
std::optional<OptionsByGroup> optionsByGroup(const PPDText& ppd, const GroupRanges& groups) {
  OptionsByGroup options;
  for (const std::u16string& keyword : ppd.optionKeywords()) {
    const TextRange range = ppd.optionRange(keyword);
    if (range == TextRange()) continue;
    auto option = optionOf(ppd, range, keyword);
    if (!option) return std::nullopt;
    options[groupHolding(groups, range)].push_back(std::move(*option));
  }
  return options;
}

// The text between the first and the last double quote; all of it when there are no two.
std::u16string_view unquoted(std::u16string_view value) {
  const std::size_t first = value.find(u'"');
  const std::size_t last = value.rfind(u'"');
  return first == last ? value : value.substr(first + 1, last - first - 1);
}

std::vector<ModelAttribute> attributesOf(std::u16string_view text) {
  std::vector<ModelAttribute> attributes;
  for (const Match& match : attributeLine().allMatches(text)) {
    const std::u16string name = captured(text, match, 1).value_or(u"");
    const std::u16string value = captured(text, match, 2).value_or(u"");
    attributes.push_back({name, std::u16string(unquoted(value))});
  }
  return attributes;
}

}  // namespace

std::u16string_view readPart(std::u16string_view text) {
  const std::size_t at = text.find(kEndOfReading);
  return at == std::u16string_view::npos ? text : text.substr(0, at + kEndOfReading.size());
}

std::optional<Model> modelOf(std::u16string_view text) {
  const PPDText ppd(text);
  const auto keywords = ppd.groupKeywords();
  if (ppd.optionKeywords().empty()) return std::nullopt;
  const auto options = optionsByGroup(ppd, ppd.groupRanges(keywords));
  if (!options) return std::nullopt;
  Model model;
  for (const std::u16string& keyword : keywords) {
    const auto found = options->find(keyword);
    model.groups.push_back(
        {keyword, found == options->end() ? std::vector<ModelOption>() : found->second});
  }
  model.attributes = attributesOf(text);
  return model;
}

}  // namespace kelm::ppdtext
