// A PPD's text and what is found in it: groups, options and their ranges.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ppdtext/pattern.hpp"
#include "ppdtext/search_area.hpp"

namespace kelm::ppdtext {

// Group keywords and ranges, in the order in which they are tried.
using GroupRanges = std::vector<std::pair<std::u16string, TextRange>>;

// The group of options that no other group's range holds.
inline constexpr std::u16string_view kGeneralGroup = u"General";

// The first group whose range holds the start of `item`; "General" when none does.
std::u16string groupHolding(const GroupRanges& ranges, TextRange item);

// Borrows the text; ranges are in its UTF-16 code units.
class PPDText {
 public:
  explicit PPDText(std::u16string_view text);

  // "General", then the keyword of every group that has a translation, in the order of the file: a
  // file that opens a group General itself has it twice.
  std::vector<std::u16string> groupKeywords() const;

  // From the group's open line to the end of the keyword that closes it; empty at 0 without both.
  // The keyword's last character may be missing in the open line.
  TextRange groupRange(std::u16string_view keyword) const;

  // The range of each keyword, in the order of the groups in the file.
  GroupRanges groupRanges(const std::vector<std::u16string>& keywords) const;

  // Every option that has a translation, in the order of the file.
  std::vector<std::u16string> optionKeywords() const;

  // From the option's last open line through its last close line; without a close line to the place
  // before the next open line, and without that one from the start of the text. Empty at 0 when
  // nothing of this is there.
  TextRange optionRange(std::u16string_view keyword) const;

  // The matches of `pattern`, which begins with "*Custom" and `keyword`, in the whole text.
  std::vector<Match> customMatches(const Pattern& pattern, std::u16string_view keyword) const;

  std::u16string_view text() const { return text_; }

 private:
  TextRange openRange(std::u16string_view keyword) const;
  TextRange rangeBeforeNextOption(TextRange open) const;

  std::u16string_view text_;
  MarkedLines openGroupLines_;
  MarkedLines closeGroupLines_;
  MarkedLines openUILines_;
  MarkedLines closeUILines_;
  MarkedLines customLines_;
};

}  // namespace kelm::ppdtext
