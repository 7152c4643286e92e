// Where a PPD's lines and its words after an asterisk are: everything that the searches for plain
// keywords need, found in one pass over the text. Each search is then a few binary searches, so
// that the time for a PPD grows with its size, whatever its shape.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "ppdtext/pattern.hpp"

namespace kelm::ppdtext {

// A character at which "." ends in a pattern (ICU, "Regular Expressions": line terminators).
bool isLineEnd(char16_t c);

// A text, which is borrowed, with the sorted places of the characters that divide its lines.
class TextIndex {
 public:
  static constexpr std::size_t kNone = std::u16string_view::npos;

  explicit TextIndex(std::u16string_view text);

  std::u16string_view text() const { return text_; }

  // The line around `at`: where it starts, and its line terminator or the end of the text.
  std::size_t lineStart(std::size_t at) const;
  std::size_t lineEnd(std::size_t at) const;

  // The first place of the character in [from, end); kNone without one.
  std::size_t firstSlash(std::size_t from, std::size_t end) const;
  std::size_t firstColon(std::size_t from, std::size_t end) const;
  // The last colon in [from, end); kNone without one.
  std::size_t lastColon(std::size_t from, std::size_t end) const;
  // What is between the last two double quotes in [from, end); none with fewer than two.
  std::optional<TextRange> lastQuoted(std::size_t from, std::size_t end) const;

  // The place after the spaces that begin at `from`; at most `end`.
  std::size_t afterSpaces(std::size_t from, std::size_t end) const;

  // The places of the asterisks before `word` (plain, or empty) and `ending` (a space, a slash or a
  // colon), in rising order.
  std::span<const std::size_t> starsBefore(std::u16string_view word, char16_t ending) const;

 private:
  std::u16string_view text_;
  std::vector<std::size_t> lineEnds_;
  std::vector<std::size_t> slashes_;
  std::vector<std::size_t> colons_;
  std::vector<std::size_t> quotes_;
  std::unordered_map<std::u16string_view, std::vector<std::size_t>> stars_;
};

// The places of `marker` in the text, in rising order, without overlaps.
std::vector<std::size_t> placesOf(std::u16string_view text, std::u16string_view marker);

// Texts, each with a range. Finds the range of the first or last added text that begins with a
// given prefix, in logarithmic time.
class PrefixIndex {
 public:
  enum class Wanted { kFirst, kLast };
  struct Entry {
    std::u16string text;
    TextRange range;
  };

  PrefixIndex(std::vector<Entry> entries, Wanted wanted);
  std::optional<TextRange> find(std::u16string_view prefix) const;

 private:
  std::size_t better(std::size_t a, std::size_t b) const;

  Wanted wanted_;
  std::vector<std::pair<Entry, std::size_t>> sorted_;  // with the place at which it was added
  std::vector<std::vector<std::size_t>> best_;  // [k][i]: of 2^k entries of sorted_ from i on
};

}  // namespace kelm::ppdtext
