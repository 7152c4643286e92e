// A PPD's text and what is found in it: groups, options and their ranges, and the lines of an
// option.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/ppd_text.hpp"

#include <algorithm>

namespace kelm::ppdtext {
namespace {

// "%@" is a keyword; the "?" after it makes the keyword's last character optional on purpose.
constexpr std::u16string_view kOpenGroup = uR"re(\*OpenGroup:[ ]*%@?/.*)re";
constexpr std::u16string_view kCloseGroup = uR"re(\*CloseGroup:[ ]*%@)re";
constexpr std::u16string_view kOpenUI = uR"re(\*OpenUI.*(\*%@?)/.*)re";
constexpr std::u16string_view kCloseUI = uR"re(\*CloseUI:.*%@[ ]*\n)re";
constexpr std::u16string_view kOptionText = uR"re(\*OpenUI.*\*%@?/(.*):)re";
constexpr std::u16string_view kOptionDefault = uR"re(\*Default%@:[ ]*(.*))re";
constexpr std::u16string_view kChoice = uR"re(\*%@[ ]+(.*?)/(.*?):.*\"(.*)\")re";
constexpr std::u16string_view kCustomChoice = uR"re(\*Custom%@[ ]+(.*?):.*\"(.*)\")re";

// What these patterns, and those of the keywords themselves, begin with.
constexpr std::u16string_view kOpenGroupMark = u"*OpenGroup:";
constexpr std::u16string_view kCloseGroupMark = u"*CloseGroup:";
constexpr std::u16string_view kOpenUIMark = u"*OpenUI";
constexpr std::u16string_view kCloseUIMark = u"*CloseUI:";
constexpr std::u16string_view kOptionMark = u"OpenUI *";

// The limit for the lines that are sorted by their beginnings: their total size, in text sizes.
constexpr std::size_t kMostCopies = 2;

std::u16string_view withoutLast(std::u16string_view keyword) {
  return keyword.substr(0, keyword.size() - 1);
}

std::u16string joined(std::u16string_view a, std::u16string_view b) {
  return std::u16string(a).append(b);
}

Match movedBy(std::size_t offset, Match match) {
  for (std::optional<TextRange>& group : match.groups) {
    if (group) group->start += offset;
  }
  return match;
}

std::u16string_view plainRun(std::u16string_view text, std::size_t from) {
  std::size_t end = from;
  while (end < text.size() && isPlainUnit(text[end])) ++end;
  return text.substr(from, end - from);
}

}  // namespace

std::u16string groupHolding(const GroupRanges& ranges, TextRange item) {
  for (const auto& [keyword, range] : ranges) {
    if (range.start <= item.start && item.start < range.end()) return keyword;
  }
  return std::u16string(kGeneralGroup);
}

GroupFinder::GroupFinder(const GroupRanges& ranges) : ranges_(ranges) {
  std::size_t end = 0;
  for (const auto& [keyword, range] : ranges) ends_.push_back(end = std::max(end, range.end()));
}

// The first of the running maxima beyond the item is the end of the first range that ends beyond
// it.
std::u16string GroupFinder::holding(TextRange item) const {
  const auto first = std::ranges::upper_bound(ends_, item.start);
  if (first == ends_.end()) return std::u16string(kGeneralGroup);
  const auto& [keyword, range] = ranges_[static_cast<std::size_t>(first - ends_.begin())];
  return range.start <= item.start ? keyword : std::u16string(kGeneralGroup);
}

PPDText::PPDText(std::u16string_view text, SearchBudget& budget)
    : index_(text), budget_(budget), openUIs_(placesOf(text, kOpenUIMark)) {
  indexGroups();
  indexCloseLines();
}

void PPDText::indexGroups() {
  for (const std::size_t place : placesOf(text(), kOpenGroupMark)) {
    const std::size_t start = index_.afterSpaces(place + kOpenGroupMark.size(), text().size());
    const std::u16string_view word = plainRun(text(), start);
    if (text().substr(start + word.size()).starts_with(u'/')) {
      openGroups_.try_emplace(word, TextRange{place, index_.lineEnd(place) - place});
    }
  }
  std::vector<PrefixIndex::Entry> entries;
  for (const std::size_t place : placesOf(text(), kCloseGroupMark)) {
    const std::size_t start = index_.afterSpaces(place + kCloseGroupMark.size(), text().size());
    entries.push_back({std::u16string(plainRun(text(), start)), {place, start - place}});
  }
  closeGroups_.emplace(std::move(entries), PrefixIndex::Wanted::kFirst);
}

// A close line ends in a keyword, spaces and a line feed.
void PPDText::indexCloseLines() {
  std::vector<PrefixIndex::Entry> entries;
  std::size_t done = 0;
  for (const std::size_t place : placesOf(text(), kCloseUIMark)) {
    if (place < done) continue;
    done = index_.lineEnd(place);
    if (done == text().size() || text()[done] != u'\n') continue;
    const std::size_t start = place + kCloseUIMark.size();
    std::size_t end = done;
    while (end > start && text()[end - 1] == u' ') --end;
    std::u16string word;
    for (; end > start && isPlainUnit(text()[end - 1]); --end) word += text()[end - 1];
    entries.push_back({std::move(word), {place, done + 1 - place}});
  }
  closeUIs_.emplace(std::move(entries), PrefixIndex::Wanted::kLast);
}

std::vector<std::u16string> PPDText::groupKeywords() const {
  std::vector<std::u16string> keywords{std::u16string(kGeneralGroup)};
  std::size_t done = 0;
  for (const std::size_t place : placesOf(text(), kOpenGroupMark)) {
    if (place < done) continue;
    done = index_.lineEnd(place);
    const std::size_t start = index_.afterSpaces(place + kOpenGroupMark.size(), done);
    const std::size_t slash = index_.firstSlash(start, done);
    if (slash != TextIndex::kNone) keywords.emplace_back(text().substr(start, slash - start));
  }
  return keywords;
}

TextRange PPDText::groupRange(std::u16string_view keyword) const {
  if (!isPlain(keyword)) {
    const auto open = Pattern(formatted(kOpenGroup, {keyword})).firstMatch(text(), budget_);
    const auto close = Pattern(formatted(kCloseGroup, {keyword})).firstMatch(text(), budget_);
    return open && close ? unionOf(open->whole(), close->whole()) : TextRange();
  }
  auto open = openGroups_.find(keyword);
  const auto shorter = openGroups_.find(withoutLast(keyword));
  const bool isShorterFirst =
      shorter != openGroups_.end() &&
      (open == openGroups_.end() || shorter->second.start < open->second.start);
  if (isShorterFirst) open = shorter;
  const auto close = closeGroups_->find(keyword);
  if (open == openGroups_.end() || !close) return {};
  return unionOf(open->second, {close->start, close->length + keyword.size()});
}

GroupRanges PPDText::groupRanges(const std::vector<std::u16string>& keywords) const {
  GroupRanges ranges;
  for (const std::u16string& keyword : keywords) ranges.emplace_back(keyword, groupRange(keyword));
  std::ranges::stable_sort(ranges, {}, [](const auto& entry) { return entry.second.start; });
  return ranges;
}

std::vector<TextRange> PPDText::optionKeywords() const {
  std::vector<TextRange> keywords;
  for (std::size_t from = 0; (from = text().find(kOptionMark, from)) != TextIndex::kNone;) {
    from += kOptionMark.size();
    const std::size_t slash = index_.firstSlash(from, index_.lineEnd(from));
    if (slash == TextIndex::kNone) {
      from = index_.lineEnd(from);
      continue;
    }
    keywords.push_back({from, slash - from});
    from = slash + 1;
  }
  return keywords;
}

// The first "*OpenUI" from `from` on, if it ends before the asterisk at `star`.
std::optional<std::size_t> PPDText::openPlaceIn(std::size_t from, std::size_t star) const {
  const auto place = std::ranges::lower_bound(openUIs_, from);
  if (place == openUIs_.end() || *place + kOpenUIMark.size() > star) return std::nullopt;
  return *place;
}

std::optional<TextRange> PPDText::lastOpenLine(std::u16string_view word) const {
  const auto stars = index_.starsBefore(word, u'/');
  for (std::size_t i = stars.size(); i > 0; --i) {
    const std::size_t star = stars[i - 1];
    const auto place = openPlaceIn(index_.lineStart(star), star);
    if (place) return TextRange{*place, index_.lineEnd(star) - *place};
  }
  return std::nullopt;
}

TextRange PPDText::openRange(std::u16string_view keyword) const {
  if (!isPlain(keyword)) {
    const auto all = Pattern(formatted(kOpenUI, {keyword})).allMatches(text(), budget_);
    return all.empty() ? TextRange() : all.back().whole();
  }
  const TextRange whole = lastOpenLine(keyword).value_or(TextRange());
  const TextRange shorter = lastOpenLine(withoutLast(keyword)).value_or(TextRange());
  return whole.end() < shorter.end() ? shorter : whole;
}

std::optional<TextRange> PPDText::closeRange(std::u16string_view keyword) const {
  if (!isPlain(keyword)) {
    const auto all = Pattern(formatted(kCloseUI, {keyword})).allMatches(text(), budget_);
    return all.empty() ? std::nullopt : std::optional(all.back().whole());
  }
  return closeUIs_->find(std::u16string(keyword.rbegin(), keyword.rend()));
}

// Where the text of `line`, which begins with "*OpenUI", occurs first.
std::size_t PPDText::firstPlaceOfOpenLine(TextRange line) const {
  if (!openUITails_) {
    std::vector<PrefixIndex::Entry> entries;
    std::size_t copied = 0;
    for (const std::size_t place : openUIs_) {
      const std::size_t length = index_.lineEnd(place) - place;
      if ((copied += length) > kMostCopies * text().size()) {
        budget_.exceed();
        return line.start;
      }
      entries.push_back({std::u16string(text().substr(place, length)), {place, length}});
    }
    openUITails_.emplace(std::move(entries), PrefixIndex::Wanted::kFirst);
  }
  return openUITails_->find(pieceOf(text(), line)).value_or(line).start;
}

// The one code unit before the next open line, or before an earlier line that begins with the same
// text; the empty range at 0 when there is no such unit.
TextRange PPDText::rangeBeforeNextOption(TextRange open) const {
  const auto next = std::ranges::lower_bound(openUIs_, open.end());
  if (next == openUIs_.end()) return {};
  const std::size_t place = firstPlaceOfOpenLine({*next, index_.lineEnd(*next) - *next});
  return place > 0 ? TextRange{place - 1, 1} : TextRange();
}

TextRange PPDText::optionRange(std::u16string_view keyword) const {
  const TextRange open = openRange(keyword);
  const auto close = closeRange(keyword);
  return unionOf(open, close ? *close : rangeBeforeNextOption(open));
}

// The matches of a pattern in a piece of the text.
std::vector<Match> PPDText::matchesIn(std::u16string_view format, std::u16string_view keyword,
                                      TextRange section) const {
  std::vector<Match> matches;
  const Pattern pattern(formatted(format, {keyword}));
  for (Match& match : pattern.allMatches(pieceOf(text(), section), budget_)) {
    matches.push_back(movedBy(section.start, std::move(match)));
  }
  return matches;
}

std::optional<TextRange> PPDText::lastTextOf(std::u16string_view word, TextRange section) const {
  const auto stars = index_.starsBefore(word, u'/');
  auto star = std::ranges::lower_bound(stars, section.end());
  while (star != stars.begin() && *--star >= section.start) {
    const std::size_t start = *star + word.size() + 2;  // after "*", the word and "/"
    const std::size_t end = std::min(section.end(), index_.lineEnd(*star));
    const std::size_t colon = index_.lastColon(start, end);
    const std::size_t from = std::max(section.start, index_.lineStart(*star));
    if (colon != TextIndex::kNone && openPlaceIn(from, *star)) {
      return TextRange{start, colon - start};
    }
  }
  return std::nullopt;
}

std::optional<TextRange> PPDText::optionText(std::u16string_view keyword, TextRange section) const {
  if (!isPlain(keyword)) {
    const auto all = matchesIn(kOptionText, keyword, section);
    return all.empty() ? std::nullopt : all.back().groups[1];
  }
  const auto whole = lastTextOf(keyword, section);
  const auto shorter = lastTextOf(withoutLast(keyword), section);
  return !whole || (shorter && shorter->start > whole->start) ? shorter : whole;
}

std::optional<TextRange> PPDText::optionDefault(std::u16string_view keyword,
                                                TextRange section) const {
  if (!isPlain(keyword)) {
    const auto all = matchesIn(kOptionDefault, keyword, section);
    return all.empty() ? std::nullopt : all.back().groups[1];
  }
  const std::u16string word = joined(u"Default", keyword);
  const std::size_t size = word.size() + 2;  // with "*" and ":"
  if (section.length < size) return std::nullopt;
  const auto stars = index_.starsBefore(word, u':');
  auto star = std::ranges::upper_bound(stars, section.end() - size);
  if (star == stars.begin() || *--star < section.start) return std::nullopt;
  const std::size_t line = std::max(section.start, index_.lineStart(*star));
  while (star != stars.begin() && *(star - 1) >= line) --star;
  const std::size_t end = std::min(section.end(), index_.lineEnd(*star));
  const std::size_t start = index_.afterSpaces(*star + size, end);
  return TextRange{start, end - start};
}

// The choice line of `word`, from the asterisk at `star` up to `end`.
std::optional<Match> PPDText::choiceAt(std::size_t star, std::u16string_view word, std::size_t end,
                                       bool isCustom) const {
  const std::size_t start = star + 1 + word.size();
  if (start >= end) return std::nullopt;
  const std::size_t first = index_.afterSpaces(start, end);
  const std::size_t slash = isCustom ? first : index_.firstSlash(first, end);
  if (slash == TextIndex::kNone) return std::nullopt;
  const std::size_t shown = isCustom ? first : slash + 1;
  const std::size_t colon = index_.firstColon(shown, end);
  if (colon == TextIndex::kNone) return std::nullopt;
  const auto code = index_.lastQuoted(colon + 1, end);
  if (!code) return std::nullopt;
  Match match{{TextRange{star, code->end() + 1 - star}}};
  if (!isCustom) match.groups.emplace_back(TextRange{first, slash - first});
  match.groups.emplace_back(TextRange{shown, colon - shown});
  match.groups.emplace_back(code);
  return match;
}

std::vector<Match> PPDText::choices(std::u16string_view keyword, TextRange section) const {
  if (!isPlain(keyword)) return matchesIn(kChoice, keyword, section);
  std::vector<Match> matches;
  std::size_t done = section.start;
  const auto stars = index_.starsBefore(keyword, u' ');
  for (auto star = std::ranges::lower_bound(stars, section.start);
       star != stars.end() && *star < section.end(); ++star) {
    if (*star < done) continue;
    done = std::min(section.end(), index_.lineEnd(*star));
    if (auto match = choiceAt(*star, keyword, done, false)) {
      matches.push_back(std::move(*match));
    }
  }
  return matches;
}

std::vector<Match> PPDText::customChoices(std::u16string_view keyword) const {
  if (!isPlain(keyword)) return matchesIn(kCustomChoice, keyword, {0, text().size()});
  const std::u16string word = joined(u"Custom", keyword);
  std::vector<Match> matches;
  std::size_t done = 0;
  for (const std::size_t star : index_.starsBefore(word, u' ')) {
    if (star < done) continue;
    done = index_.lineEnd(star);
    if (auto match = choiceAt(star, word, done, true)) {
      matches.push_back(std::move(*match));
    }
  }
  return matches;
}

// As the pattern "\*([^ ]*?):[ ]*(.*)" finds them: a name has no space, but may have line ends.
std::vector<std::pair<TextRange, TextRange>> PPDText::attributes() const {
  std::vector<std::pair<TextRange, TextRange>> attributes;
  std::size_t colon = 0;
  std::size_t space = 0;
  std::size_t star = text().find(u'*');
  while (star != TextIndex::kNone) {
    if (colon <= star) colon = text().find(u':', star);
    if (space <= star) space = text().find(u' ', star);
    if (colon == TextIndex::kNone) break;
    if (space < colon) {
      star = text().find(u'*', space);
      continue;
    }
    const std::size_t start = index_.afterSpaces(colon + 1, text().size());
    const std::size_t end = index_.lineEnd(start);
    attributes.push_back({{star + 1, colon - star - 1}, {start, end - start}});
    star = text().find(u'*', end);
  }
  return attributes;
}

std::size_t PPDText::lineNumber(std::size_t at) const {
  return static_cast<std::size_t>(std::ranges::count(text().substr(0, at), u'\n')) + 1;
}

}  // namespace kelm::ppdtext
