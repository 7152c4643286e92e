// Where a PPD's lines and its words after an asterisk are.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/text_index.hpp"

#include <algorithm>
#include <bit>
#include <string>

namespace kelm::ppdtext {
namespace {

constexpr std::size_t kNone = TextIndex::kNone;

std::size_t firstIn(const std::vector<std::size_t>& places, std::size_t from, std::size_t end) {
  const auto found = std::ranges::lower_bound(places, from);
  return found == places.end() || *found >= end ? kNone : *found;
}

bool endsMarkedWord(char16_t c) { return c == u' ' || c == u'/' || c == u':'; }

}  // namespace

bool isLineEnd(char16_t c) {
  return (c >= 0x0A && c <= 0x0D) || c == 0x85 || c == 0x2028 || c == 0x2029;
}

TextIndex::TextIndex(std::u16string_view text) : text_(text) {
  std::size_t star = kNone;  // the last one, while only plain units follow it
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    if (isPlainUnit(c)) continue;
    if (isLineEnd(c)) lineEnds_.push_back(i);
    if (c == u'/') slashes_.push_back(i);
    if (c == u':') colons_.push_back(i);
    if (c == u'"') quotes_.push_back(i);
    if (star != kNone && endsMarkedWord(c)) {
      stars_[text.substr(star + 1, i - star)].push_back(star);
    }
    star = c == u'*' ? i : kNone;
  }
}

std::size_t TextIndex::lineStart(std::size_t at) const {
  const auto next = std::ranges::lower_bound(lineEnds_, at);
  return next == lineEnds_.begin() ? 0 : *(next - 1) + 1;
}

std::size_t TextIndex::lineEnd(std::size_t at) const {
  const std::size_t end = firstIn(lineEnds_, at, text_.size());
  return end == kNone ? text_.size() : end;
}

std::size_t TextIndex::firstSlash(std::size_t from, std::size_t end) const {
  return firstIn(slashes_, from, end);
}

std::size_t TextIndex::firstColon(std::size_t from, std::size_t end) const {
  return firstIn(colons_, from, end);
}

std::size_t TextIndex::lastColon(std::size_t from, std::size_t end) const {
  const auto next = std::ranges::lower_bound(colons_, end);
  return next == colons_.begin() || *(next - 1) < from ? kNone : *(next - 1);
}

std::optional<TextRange> TextIndex::lastQuoted(std::size_t from, std::size_t end) const {
  const auto next = std::ranges::lower_bound(quotes_, end);
  if (next - quotes_.begin() < 2 || *(next - 2) < from) return std::nullopt;
  const std::size_t start = *(next - 2) + 1;
  return TextRange{start, *(next - 1) - start};
}

std::size_t TextIndex::afterSpaces(std::size_t from, std::size_t end) const {
  while (from < end && text_[from] == u' ') ++from;
  return from;
}

std::span<const std::size_t> TextIndex::starsBefore(std::u16string_view word,
                                                    char16_t ending) const {
  const auto found = stars_.find(std::u16string(word) + ending);
  if (found == stars_.end()) return {};
  return found->second;
}

std::vector<std::size_t> placesOf(std::u16string_view text, std::u16string_view marker) {
  std::vector<std::size_t> places;
  std::size_t at = text.find(marker);
  for (; at != kNone; at = text.find(marker, at + marker.size())) places.push_back(at);
  return places;
}

PrefixIndex::PrefixIndex(std::vector<Entry> entries, Wanted wanted) : wanted_(wanted) {
  for (Entry& entry : entries) sorted_.emplace_back(std::move(entry), sorted_.size());
  std::ranges::sort(
      sorted_, {}, [](const auto& item) -> const auto& { return item.first.text; });
  best_.emplace_back();
  for (std::size_t i = 0; i < sorted_.size(); ++i) best_[0].push_back(i);
  for (std::size_t width = 2; width <= sorted_.size(); width *= 2) {
    const std::vector<std::size_t>& half = best_.back();
    std::vector<std::size_t> whole;
    for (std::size_t i = 0; i + width <= sorted_.size(); ++i) {
      whole.push_back(better(half[i], half[i + width / 2]));
    }
    best_.push_back(std::move(whole));
  }
}

std::size_t PrefixIndex::better(std::size_t a, std::size_t b) const {
  const bool isEarlier = sorted_[a].second < sorted_[b].second;
  return isEarlier == (wanted_ == Wanted::kFirst) ? a : b;
}

std::optional<TextRange> PrefixIndex::find(std::u16string_view prefix) const {
  const auto beginning = [&](const auto& item) {
    return std::u16string_view(item.first.text).substr(0, prefix.size());
  };
  const auto begin = std::ranges::lower_bound(sorted_, prefix, {}, beginning);
  const auto end = std::ranges::upper_bound(sorted_, prefix, {}, beginning);
  if (begin == end) return std::nullopt;
  const auto first = static_cast<std::size_t>(begin - sorted_.begin());
  const auto count = static_cast<std::size_t>(end - begin);
  const std::size_t span = std::bit_floor(count);
  const auto level = static_cast<std::size_t>(std::countr_zero(span));
  const std::size_t last = first + count - span;
  return sorted_[better(best_[level][first], best_[level][last])].first.range;
}

}  // namespace kelm::ppdtext
