// A PPD's text and what is found in it: groups, options and their ranges.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/ppd_text.hpp"

#include <algorithm>
#include <optional>

namespace kelm::ppdtext {
namespace {

// "%@" is a keyword; the "?" after it makes the keyword's last character optional on purpose.
constexpr std::u16string_view kOpenGroup = uR"re(\*OpenGroup:[ ]*%@?/.*)re";
constexpr std::u16string_view kCloseGroup = uR"re(\*CloseGroup:[ ]*%@)re";
constexpr std::u16string_view kOpenUI = uR"re(\*OpenUI.*(\*%@?)/.*)re";
constexpr std::u16string_view kCloseUI = uR"re(\*CloseUI:.*%@[ ]*\n)re";

const Pattern& groupLine() {
  static const Pattern pattern(uR"re(\*OpenGroup:[ ]*(.*?)/.*)re");
  return pattern;
}

const Pattern& optionStart() {
  static const Pattern pattern(uR"re(OpenUI \*(.*?)/)re");
  return pattern;
}

const Pattern& anyOptionLine() {
  static const Pattern pattern(uR"re(\*OpenUI.*)re");
  return pattern;
}

void appendFirstCaptures(std::vector<std::u16string>& keywords, const Pattern& pattern,
                         std::u16string_view text) {
  for (const Match& match : pattern.allMatches(text)) {
    if (auto keyword = captured(text, match, 1)) keywords.push_back(std::move(*keyword));
  }
}

}  // namespace

std::u16string groupHolding(const GroupRanges& ranges, TextRange item) {
  for (const auto& [keyword, range] : ranges) {
    if (range.start <= item.start && item.start < range.end()) return keyword;
  }
  return std::u16string(kGeneralGroup);
}

PPDText::PPDText(std::u16string_view text)
    : text_(text),
      openGroupLines_(text, u"*OpenGroup:"),
      closeGroupLines_(text, u"*CloseGroup:"),
      openUILines_(text, u"*OpenUI"),
      closeUILines_(text, u"*CloseUI:"),
      customLines_(text, u"*Custom") {}

std::vector<std::u16string> PPDText::groupKeywords() const {
  std::vector<std::u16string> keywords{std::u16string(kGeneralGroup)};
  appendFirstCaptures(keywords, groupLine(), text_);
  return keywords;
}

TextRange PPDText::groupRange(std::u16string_view keyword) const {
  const auto open =
      openGroupLines_.linesFor(keyword).firstMatch(Pattern(formatted(kOpenGroup, {keyword})));
  const auto close =
      closeGroupLines_.linesFor(keyword).firstMatch(Pattern(formatted(kCloseGroup, {keyword})));
  return open && close ? unionOf(open->whole(), close->whole()) : TextRange();
}

GroupRanges PPDText::groupRanges(const std::vector<std::u16string>& keywords) const {
  GroupRanges ranges;
  for (const std::u16string& keyword : keywords) ranges.emplace_back(keyword, groupRange(keyword));
  std::ranges::stable_sort(ranges, {}, [](const auto& entry) { return entry.second.start; });
  return ranges;
}

std::vector<std::u16string> PPDText::optionKeywords() const {
  std::vector<std::u16string> keywords;
  appendFirstCaptures(keywords, optionStart(), text_);
  return keywords;
}

TextRange PPDText::openRange(std::u16string_view keyword) const {
  const Pattern pattern(formatted(kOpenUI, {keyword}));
  const auto open = openUILines_.linesWithWordFor(keyword).lastMatch(pattern);
  return open ? open->whole() : TextRange();
}

// The one code unit before the next open line; a line of the same text that stands further ahead
// counts instead, and no line at all is the empty range at 0.
TextRange PPDText::rangeBeforeNextOption(TextRange open) const {
  const std::u16string_view behind = text_.substr(open.end());
  const auto next = anyOptionLine().firstMatch(behind);
  if (!next) return {};
  const auto place = openUILines_.all().firstPlaceOf(pieceOf(behind, next->whole()));
  return place.value_or(0) > 0 ? TextRange{*place - 1, 1} : TextRange();
}

TextRange PPDText::optionRange(std::u16string_view keyword) const {
  const TextRange open = openRange(keyword);
  const Pattern pattern(formatted(kCloseUI, {keyword}));
  const auto close = closeUILines_.linesWithWordFor(keyword).lastMatch(pattern);
  return unionOf(open, close ? close->whole() : rangeBeforeNextOption(open));
}

std::vector<Match> PPDText::customMatches(const Pattern& pattern,
                                          std::u16string_view keyword) const {
  return customLines_.linesWithWordFor(keyword).allMatches(pattern);
}

}  // namespace kelm::ppdtext
