// Regular expressions as PPD texts are searched with: ICU's, bounded in time and memory.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <unicode/uregex.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelm::ppdtext {

// A piece of a text, in UTF-16 code units.
struct TextRange {
  std::size_t start = 0;
  std::size_t length = 0;

  std::size_t end() const { return start + length; }
  friend bool operator==(const TextRange&, const TextRange&) = default;
};

// From the smaller start to the larger end. An empty range at 0 counts, too.
TextRange unionOf(TextRange a, TextRange b);

std::u16string_view pieceOf(std::u16string_view text, TextRange range);

// One match: the whole match, then its capture groups. A group that took no part has no range.
struct Match {
  std::vector<std::optional<TextRange>> groups;

  TextRange whole() const { return *groups.front(); }
  std::size_t captureCount() const { return groups.size() - 1; }
};

// What the group `index` of `match` captured in `text`; none when it captured nothing or does not
// exist.
std::optional<std::u16string> captured(std::u16string_view text, const Match& match,
                                       std::size_t index);

enum class Letters { kExact, kAnyCase };

// The time that all searches in one text may take together. Keywords of a PPD become patterns, and
// a pattern can take any amount of time. With one budget for all of them, the time for a PPD
// depends only on its size. A search that exceeds the budget stops with what it has found, and so
// does every later one.
class SearchBudget {
 public:
  explicit SearchBudget(std::u16string_view text);

  bool isExceeded() const { return left_ <= 0; }
  // In steps of ICU's matcher, some 20 ns each.
  void spend(std::int64_t steps) { left_ -= steps; }
  void exceed() { left_ = 0; }

 private:
  std::int64_t left_;
};

// May be shared between threads once it is made.
class Pattern {
 public:
  explicit Pattern(std::u16string_view pattern, Letters letters = Letters::kExact);

  // False when the expression does not compile; such a pattern has no matches.
  bool isValid() const { return expression_ != nullptr; }

  // The matches that do not overlap, from the left.
  std::vector<Match> allMatches(std::u16string_view text, SearchBudget& budget) const;

  // The leftmost match.
  std::optional<Match> firstMatch(std::u16string_view text, SearchBudget& budget) const;

 private:
  struct Close {
    void operator()(URegularExpression* expression) const { uregex_close(expression); }
  };
  using Expression = std::unique_ptr<URegularExpression, Close>;
  Expression searchOf(std::u16string_view text, SearchBudget& budget) const;

  Expression expression_;
};

// `format` with each "%@" replaced by the next of `arguments`, unescaped: pattern characters keep
// their meaning.
std::u16string formatted(std::u16string_view format,
                         std::initializer_list<std::u16string_view> arguments);

// Visible ASCII that means itself in a pattern, except what ends a keyword in a PPD: "/", ":" and
// the double quote.
bool isPlainUnit(char16_t c);

// Whether `keyword` is made of plain units, at least one.
bool isPlain(std::u16string_view keyword);

}  // namespace kelm::ppdtext
