// The simplest possible reader of PPDs.
// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/ppdtext/plain_reader.hpp"

#include <algorithm>
#include <map>
#include <utility>

#include "ppdtext/ppd_text.hpp"

namespace kelm::ppdtext::plain {
namespace {

using Text = std::u16string_view;

// ICU takes longer to compile a pattern than to search a short text. A reference is valid until the
// next call.
const Pattern& compiled(const std::u16string& pattern, Letters letters) {
  constexpr std::size_t kMost = 1000;
  static std::map<std::pair<std::u16string, Letters>, Pattern> patterns;
  if (patterns.size() == kMost) patterns.clear();
  return patterns.try_emplace({pattern, letters}, pattern, letters).first->second;
}

std::u16string put(const char16_t* before, Text keyword, const char16_t* after) {
  return std::u16string(before).append(keyword).append(after);
}

std::optional<TextRange> last(Text text, const std::u16string& pattern) {
  const auto matches = allMatches(text, pattern);
  return matches.empty() ? std::nullopt : std::optional(matches.back().whole());
}

std::optional<std::u16string> lastCapture(Text text, const std::u16string& pattern) {
  const auto matches = allMatches(text, pattern);
  return matches.empty() ? std::nullopt : captured(text, matches.back(), 1);
}

std::vector<std::u16string> captures(Text text, const std::u16string& pattern) {
  std::vector<std::u16string> found;
  for (const Match& match : allMatches(text, pattern)) found.push_back(*captured(text, match, 1));
  return found;
}

// The number of groups tells the two kinds of lines apart.
void addChoice(std::vector<ModelChoice>& choices, Text text, const Match& match) {
  const bool isCustom = match.captureCount() == 2;
  if (!isCustom && match.captureCount() != 3) return;
  const auto keyword = isCustom ? u"Custom" : captured(text, match, 1);
  const auto shown = isCustom ? u"Custom" : captured(text, match, 2);
  const auto code = captured(text, match, isCustom ? 2 : 3);
  if (keyword && shown && code) choices.push_back({*keyword, *shown, *code});
}

std::optional<ModelOption> optionIn(Text text, TextRange range, const std::u16string& keyword) {
  const Text section = pieceOf(text, range);
  const auto own = allMatches(section, put(u"\\*", keyword, u"[ ]+(.*?)/(.*?):.*\\\"(.*)\\\""));
  const auto custom = allMatches(text, put(u"\\*Custom", keyword, u"[ ]+(.*?):.*\\\"(.*)\\\""));
  if (own.empty() && custom.empty()) return std::nullopt;
  ModelOption option{keyword,
                     lastCapture(section, put(u"\\*OpenUI.*\\*", keyword, u"?/(.*):")),
                     lastCapture(section, put(u"\\*Default", keyword, u":[ ]*(.*)")),
                     {}};
  for (const Match& match : own) addChoice(option.choices, section, match);
  for (const Match& match : custom) addChoice(option.choices, text, match);
  if (keyword == u"PageRegion") option.choices.push_back({u"Custom", u"Custom", u"__EMPTY__"});
  return option;
}

std::vector<ModelAttribute> attributesIn(Text text) {
  std::vector<ModelAttribute> attributes;
  for (const Match& match : allMatches(text, u"\\*([^ ]*?):[ ]*(.*)")) {
    std::u16string value = *captured(text, match, 2);
    const auto quoted = firstMatch(value, u"\"(.*)\"");
    if (quoted) value = *captured(std::u16string(value), *quoted, 1);
    attributes.push_back({*captured(text, match, 1), value});
  }
  return attributes;
}

}  // namespace

std::vector<Match> allMatches(Text text, const std::u16string& pattern) {
  SearchBudget budget(text);
  return compiled(pattern, Letters::kExact).allMatches(text, budget);
}

std::optional<Match> firstMatch(Text text, const std::u16string& pattern, Letters letters) {
  SearchBudget budget(text);
  return compiled(pattern, letters).firstMatch(text, budget);
}

TextRange optionRange(Text text, Text keyword) {
  const TextRange open =
      last(text, put(u"\\*OpenUI.*(\\*", keyword, u"?)/.*")).value_or(TextRange());
  if (const auto close = last(text, put(u"\\*CloseUI:.*", keyword, u"[ ]*\\n"))) {
    return unionOf(open, *close);
  }
  const Text after = text.substr(open.end());
  const auto next = firstMatch(after, u"\\*OpenUI.*");
  if (!next) return unionOf(open, {});
  const std::size_t place = text.find(pieceOf(after, next->whole()));
  return unionOf(open, place == 0 ? TextRange() : TextRange{place - 1, 1});
}

TextRange groupRange(Text text, Text keyword) {
  const auto open = firstMatch(text, put(u"\\*OpenGroup:[ ]*", keyword, u"?/.*"));
  const auto close = firstMatch(text, put(u"\\*CloseGroup:[ ]*", keyword, u""));
  return open && close ? unionOf(open->whole(), close->whole()) : TextRange();
}

std::optional<Model> model(Text text) {
  std::vector<std::u16string> groups = captures(text, u"\\*OpenGroup:[ ]*(.*?)/.*");
  groups.insert(groups.begin(), u"General");
  GroupRanges ranges;
  for (const auto& group : groups) ranges.emplace_back(group, groupRange(text, group));
  std::ranges::stable_sort(ranges, {}, [](const auto& entry) { return entry.second.start; });
  const auto options = captures(text, u"OpenUI \\*(.*?)/");
  if (options.empty()) return std::nullopt;
  Model model;
  for (const auto& group : groups) model.groups.push_back({group, {}});
  for (const auto& keyword : options) {
    const TextRange range = optionRange(text, keyword);
    if (range == TextRange()) continue;
    const auto option = optionIn(text, range, keyword);
    if (!option) return std::nullopt;
    for (ModelGroup& group : model.groups) {
      if (group.keyword == groupHolding(ranges, range)) group.options.push_back(*option);
    }
  }
  model.attributes = attributesIn(text);
  return model;
}

std::size_t localizationEnd(Text text, Text language) {
  const auto line = last(text, put(u"\\*", language, u"\\..*"));
  return line ? line->end() : 0;
}

std::optional<std::u16string> translation(Text text, Text language, Text option,
                                          std::optional<Text> choice) {
  const std::u16string pattern =
      choice ? put(u"(\u00A5*", language, u".")
                   .append(option)
                   .append(put(u") (", *choice, u")/(.*?):"))
             : put(u"(\u00A5*", language, u".Translation) (").append(put(u"", option, u")/(.*?):"));
  const Text counting = text.substr(0, localizationEnd(text, language));
  const auto match = firstMatch(counting, pattern, Letters::kAnyCase);
  const auto shown = match ? captured(counting, *match, 3) : std::nullopt;
  if (shown && !shown->empty()) return shown;
  const bool isDefined = firstMatch(text, pattern, Letters::kAnyCase).has_value();
  return isDefined ? std::optional<std::u16string>(u"") : std::nullopt;
}

}  // namespace kelm::ppdtext::plain
