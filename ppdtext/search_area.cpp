// Where in a text a pattern is searched: everywhere, or in the lines where alone it can match.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/search_area.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kelm::ppdtext {
namespace {

// Lines are found by the last units of their words, as many as fit into a number.
constexpr std::size_t kEndUnits = 4;
constexpr int kUnitBits = 16;

// `match` in a piece that begins at `offset`, as a match in the whole text.
Match movedBy(std::size_t offset, Match match) {
  for (std::optional<TextRange>& group : match.groups) {
    if (group) group->start += offset;
  }
  return match;
}

// `word` has at least kEndUnits units.
std::uint64_t endOf(std::u16string_view word) {
  std::uint64_t end = 0;
  for (const char16_t unit : word.substr(word.size() - kEndUnits)) end = end << kUnitBits | unit;
  return end;
}

std::vector<TextRange> linesOf(std::u16string_view text, std::u16string_view marker) {
  std::vector<TextRange> lines;
  std::size_t start = text.find(marker);
  while (start != std::u16string_view::npos) {
    const std::size_t lineFeed = std::min(text.find(u'\n', start), text.size() - 1);
    lines.push_back({start, lineFeed + 1 - start});
    start = text.find(marker, lineFeed + 1);
  }
  return lines;
}

}  // namespace

SearchArea SearchArea::wholeText(std::u16string_view text) {
  return SearchArea(text, {{0, text.size()}});
}

std::optional<Match> SearchArea::firstMatch(const Pattern& pattern) const {
  for (const TextRange& piece : pieces_) {
    auto match = pattern.firstMatch(pieceOf(text_, piece));
    if (match) return movedBy(piece.start, std::move(*match));
  }
  return std::nullopt;
}

std::optional<Match> SearchArea::lastMatch(const Pattern& pattern) const {
  for (std::size_t i = pieces_.size(); i > 0; --i) {
    const TextRange& piece = pieces_[i - 1];
    auto matches = pattern.allMatches(pieceOf(text_, piece));
    if (!matches.empty()) return movedBy(piece.start, std::move(matches.back()));
  }
  return std::nullopt;
}

std::vector<Match> SearchArea::allMatches(const Pattern& pattern) const {
  std::vector<Match> all;
  for (const TextRange& piece : pieces_) {
    for (Match& match : pattern.allMatches(pieceOf(text_, piece))) {
      all.push_back(movedBy(piece.start, std::move(match)));
    }
  }
  return all;
}

std::optional<std::size_t> SearchArea::firstPlaceOf(std::u16string_view part) const {
  for (const TextRange& piece : pieces_) {
    const std::size_t at = pieceOf(text_, piece).find(part);
    if (at != std::u16string_view::npos) return piece.start + at;
  }
  return std::nullopt;
}

SearchArea SearchArea::before(std::size_t end) const {
  std::vector<TextRange> pieces;
  for (const TextRange& piece : pieces_) {
    if (piece.start >= end) break;
    pieces.push_back({piece.start, std::min(piece.end(), end) - piece.start});
  }
  return {text_, std::move(pieces)};
}

MarkedLines::MarkedLines(std::u16string_view text, std::u16string_view marker)
    : text_(text), everywhere_(SearchArea::wholeText(text)), all_(text, linesOf(text, marker)) {
  for (const TextRange& line : all_.pieces()) addWordEnds(line);
}

void MarkedLines::addWordEnds(TextRange line) {
  const std::u16string_view text = pieceOf(text_, line);
  std::size_t length = 0;
  for (std::size_t i = 0; i <= text.size(); ++i) {
    if (i < text.size() && isPlainUnit(text[i])) {
      ++length;
      continue;
    }
    if (length >= kEndUnits) {
      std::vector<TextRange>& lines = byWordEnd_[endOf(text.substr(0, i))];
      if (lines.empty() || lines.back() != line) lines.push_back(line);
    }
    length = 0;
  }
}

const std::vector<TextRange>& MarkedLines::linesWithEnd(std::u16string_view word) const {
  static const std::vector<TextRange> kNone;
  const auto found = byWordEnd_.find(endOf(word));
  return found == byWordEnd_.end() ? kNone : found->second;
}

const SearchArea& MarkedLines::linesFor(std::u16string_view keyword) const {
  return isPlain(keyword) ? all_ : everywhere_;
}

SearchArea MarkedLines::linesWithWordFor(std::u16string_view keyword) const {
  if (!isPlain(keyword) || keyword.size() <= kEndUnits) return linesFor(keyword);
  std::vector<TextRange> lines;
  std::ranges::set_union(linesWithEnd(keyword), linesWithEnd(keyword.substr(0, keyword.size() - 1)),
                         std::back_inserter(lines), {}, &TextRange::start, &TextRange::start);
  return {text_, std::move(lines)};
}

}  // namespace kelm::ppdtext
