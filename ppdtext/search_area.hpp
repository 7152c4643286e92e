// Where in a text a pattern is searched: everywhere, or in the lines where alone it can match.
// Searching every option's patterns through a whole PPD would take time by the square of its size;
// the results here are those of the whole text all the same.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ppdtext/pattern.hpp"

namespace kelm::ppdtext {

// Pieces of a text, which is borrowed. Every match that the methods return lies in one piece, and
// its ranges are those of the text.
class SearchArea {
 public:
  // The pieces in rising order, without overlaps.
  SearchArea(std::u16string_view text, std::vector<TextRange> pieces)
      : text_(text), pieces_(std::move(pieces)) {}

  static SearchArea wholeText(std::u16string_view text);

  std::optional<Match> firstMatch(const Pattern& pattern) const;
  std::optional<Match> lastMatch(const Pattern& pattern) const;
  std::vector<Match> allMatches(const Pattern& pattern) const;

  // Where `part` stands in the text first; it must lie in a piece.
  std::optional<std::size_t> firstPlaceOf(std::u16string_view part) const;

  // The same area, up to `end` of the text.
  SearchArea before(std::size_t end) const;

  const std::vector<TextRange>& pieces() const { return pieces_; }

 private:
  std::u16string_view text_;
  std::vector<TextRange> pieces_;
};

// The lines of a text that hold a marker, from its first place through the line feed: where alone a
// pattern can match that begins with the marker and whose matches do not go beyond a line feed.
// Borrows the text.
class MarkedLines {
 public:
  MarkedLines(std::u16string_view text, std::u16string_view marker);

  const SearchArea& all() const { return all_; }

  // For a pattern made of `keyword`: all of these lines, or everywhere when the keyword has pattern
  // characters, with which it can match anywhere.
  const SearchArea& linesFor(std::u16string_view keyword) const;

  // As linesFor, when what the pattern matches of the keyword ends a word of letters, digits, "_"
  // and "-". The keyword's last character may be missing there.
  SearchArea linesWithWordFor(std::u16string_view keyword) const;

 private:
  void addWordEnds(TextRange line);
  const std::vector<TextRange>& linesWithEnd(std::u16string_view word) const;

  std::u16string_view text_;
  SearchArea everywhere_;
  SearchArea all_;
  std::unordered_map<std::uint64_t, std::vector<TextRange>> byWordEnd_;
};

}  // namespace kelm::ppdtext
