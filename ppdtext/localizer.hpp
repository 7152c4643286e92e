// A PPD's texts in one language: the translation lines of a file, and a record shown with them.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ppdtext/pattern.hpp"
#include "ppdtext/search_area.hpp"

namespace kelm::ppdtext {

// The expression of a translation line, whose third group is the translation: of the option, or of
// its choice where there is one. To be compiled for letters of any case.
std::u16string translationPattern(std::u16string_view language, std::u16string_view option,
                                  std::optional<std::u16string_view> choice);

// The capture group of translationPattern that holds the translation.
inline constexpr std::size_t kTranslationGroup = 3;

// How far `text` counts for translations: to the end of the language's last line, 0 without one. A
// language that makes no valid pattern leaves all of it.
std::size_t localizationEnd(std::u16string_view text, std::u16string_view language);

// The lines of a text in which a language's translation patterns can match at all, found by what
// stands before the blank and between the blank and the slash. Borrows the text.
class TranslationLines {
 public:
  TranslationLines(std::u16string_view text, std::u16string_view language);

  // `subject` is the option, or "Translation" for an option's own line; `keyword` is the choice, or
  // then the option. Everywhere when one of them or the language has pattern characters.
  SearchArea linesOf(std::u16string_view subject, std::u16string_view keyword) const;

 private:
  void addLine(TextRange line);
  void addSlash(std::u16string_view before, TextRange line);
  void addSubjects(std::u16string_view words, std::u16string_view keyword, TextRange line);

  std::u16string_view text_;
  std::u16string language_;  // folded; empty when it has pattern characters
  std::unordered_map<std::u16string, std::vector<TextRange>> lines_;
};

// Borrows the text of the PPD file.
class Localizer {
 public:
  Localizer(std::u16string_view text, std::u16string_view language);

  // What the option, or its choice, is to be shown as; empty when its line translates it to
  // nothing, none when it keeps its text.
  std::optional<std::u16string> textFor(std::u16string_view option,
                                        std::optional<std::u16string_view> choice) const;

 private:
  std::u16string_view text_;
  std::u16string language_;
  std::size_t end_;
  TranslationLines lines_;
};

// Shows the record's options and choices in `language` with the translations of `text`: a
// translation replaces the text, cut at the field's last byte, and an empty one empties it.
void localizeRecord(const ppd_file_t& ppd, std::u16string_view text, std::u16string_view language);

}  // namespace kelm::ppdtext
