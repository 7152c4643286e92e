// A PPD's text and what is found in it: groups, options and their ranges, and the lines of an
// option.
//
// Each search has the meaning of a pattern with the keyword in it, unescaped (docs/ppd-text.md).
// Plain keywords, which have no pattern characters, are found through an index; others are searched
// for as patterns within the text's budget.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "ppdtext/pattern.hpp"
#include "ppdtext/text_index.hpp"

namespace kelm::ppdtext {

// Group keywords and ranges, in the order in which they are tried.
using GroupRanges = std::vector<std::pair<std::u16string, TextRange>>;

// The group of options that no other group's range holds.
inline constexpr std::u16string_view kGeneralGroup = u"General";

// The first group whose range holds the start of `item`; "General" when none does.
std::u16string groupHolding(const GroupRanges& ranges, TextRange item);

// The same for many items: `ranges`, which is borrowed, is sorted by start.
class GroupFinder {
 public:
  explicit GroupFinder(const GroupRanges& ranges);
  std::u16string holding(TextRange item) const;

 private:
  const GroupRanges& ranges_;
  std::vector<std::size_t> ends_;  // the largest end of the ranges up to each
};

// Borrows the text and the budget. Ranges are in the text's UTF-16 code units.
class PPDText {
 public:
  PPDText(std::u16string_view text, SearchBudget& budget);

  // "General", then the keyword of every group that has a translation, in the order of the file: a
  // file that opens a group General itself has it twice.
  std::vector<std::u16string> groupKeywords() const;

  // From the group's open line to the end of the keyword that closes it; empty at 0 without both.
  // The keyword's last character may be missing in the open line.
  TextRange groupRange(std::u16string_view keyword) const;

  // The range of each keyword, in the order of the groups in the file.
  GroupRanges groupRanges(const std::vector<std::u16string>& keywords) const;

  // The keyword of every option that has a translation, where the file opens it, in the file's
  // order.
  std::vector<TextRange> optionKeywords() const;

  // From the option's last open line through its last close line. Without a close line it ends
  // before the next open line. Without a next open line either, it goes from the start of the text
  // to the end of the open line. Empty at 0 when none of these lines exists.
  TextRange optionRange(std::u16string_view keyword) const;

  // The text and the default of the option in `section`, an option's range.
  std::optional<TextRange> optionText(std::u16string_view keyword, TextRange section) const;
  std::optional<TextRange> optionDefault(std::u16string_view keyword, TextRange section) const;

  // The choices in `section`, with three groups: keyword, text and code; and the custom choices of
  // the whole text, with two: parameter and code.
  std::vector<Match> choices(std::u16string_view keyword, TextRange section) const;
  std::vector<Match> customChoices(std::u16string_view keyword) const;

  // Every attribute: its name, and its value as the line has it.
  std::vector<std::pair<TextRange, TextRange>> attributes() const;

  std::u16string_view text() const { return index_.text(); }
  // The number of the line that holds `at`, from 1.
  std::size_t lineNumber(std::size_t at) const;

 private:
  void indexGroups();
  void indexCloseLines();
  TextRange openRange(std::u16string_view keyword) const;
  std::optional<TextRange> lastOpenLine(std::u16string_view word) const;
  std::optional<TextRange> closeRange(std::u16string_view keyword) const;
  TextRange rangeBeforeNextOption(TextRange open) const;
  std::size_t firstPlaceOfOpenLine(TextRange line) const;
  std::optional<std::size_t> openPlaceIn(std::size_t from, std::size_t star) const;
  std::optional<TextRange> lastTextOf(std::u16string_view word, TextRange section) const;
  std::vector<Match> matchesIn(std::u16string_view format, std::u16string_view keyword,
                               TextRange section) const;
  std::optional<Match> choiceAt(std::size_t star, std::u16string_view word, std::size_t end,
                                bool isCustom) const;

  TextIndex index_;
  SearchBudget& budget_;
  std::vector<std::size_t> openUIs_;
  std::unordered_map<std::u16string_view, TextRange> openGroups_;
  std::optional<PrefixIndex> closeGroups_;          // up to the start of the keyword
  std::optional<PrefixIndex> closeUIs_;             // by the reversed end of the line
  mutable std::optional<PrefixIndex> openUITails_;  // made when the first option lacks a close line
};

}  // namespace kelm::ppdtext
