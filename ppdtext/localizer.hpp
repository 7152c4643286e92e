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

namespace kelm::ppdtext {

// The expression of a translation line, whose third group is the translation: of the option, or of
// its choice where there is one. To be compiled for letters of any case.
std::u16string translationPattern(std::u16string_view language, std::u16string_view option,
                                  std::optional<std::u16string_view> choice);

// The capture group of translationPattern that holds the translation.
inline constexpr std::size_t kTranslationGroup = 3;

// Where the translations in `text` end: at the end of the language's last line, 0 without one. If
// the language makes an invalid pattern, the end of the text.
std::size_t localizationEnd(std::u16string_view text, std::u16string_view language,
                            SearchBudget& budget);

// The translation lines of a text in one language, found in one pass. Borrows the text.
class TranslationLines {
 public:
  // `language` is plain.
  TranslationLines(std::u16string_view text, std::u16string_view language);

  // The translation in the first line with this subject (the option, or "Translation" for an
  // option's own line) and keyword (the choice, or then the option), both plain.
  std::optional<TextRange> first(std::u16string_view subject, std::u16string_view keyword) const;

  // The lines with this plain subject, for a keyword in which "." matches any character.
  std::vector<TextRange> linesOf(std::u16string_view subject) const;

  // Lines in which a letter beyond ASCII may equal a letter of the subject or keyword when case is
  // ignored. They must be searched with a pattern.
  std::vector<TextRange> unusual(std::u16string_view subject, std::u16string_view keyword) const;

 private:
  void addLine(TextRange line);
  void addAt(std::size_t place, TextRange line);
  void addUnusual(TextRange line);
  void addUnusualBefore(std::size_t slash, TextRange line);

  std::u16string_view text_;
  std::u16string language_;  // in lower case
  std::unordered_map<std::u16string, TextRange> first_;
  std::unordered_map<std::u16string, std::vector<TextRange>> bySubject_;
  std::unordered_map<std::u16string, std::vector<TextRange>> unusual_;
  std::vector<TextRange> unusualLines_;
};

// Borrows the text of the PPD file and the budget.
class Localizer {
 public:
  Localizer(std::u16string_view text, std::u16string_view language, SearchBudget& budget);

  // The text to show for the option, or for its choice. An empty text when its translation is
  // empty, nothing when it keeps its own text.
  std::optional<std::u16string> textFor(std::u16string_view option,
                                        std::optional<std::u16string_view> choice) const;

 private:
  std::optional<TextRange> firstOfPlain(std::u16string_view option,
                                        std::optional<std::u16string_view> choice) const;
  std::optional<std::u16string> textByPattern(const Pattern& pattern,
                                              const std::vector<TextRange>& pieces) const;

  std::u16string_view text_;
  std::u16string language_;
  SearchBudget& budget_;
  std::size_t end_;
  std::optional<TranslationLines> lines_;  // of a plain language
};

// Shows the record's options and choices in `language` with the translations of `text`: a
// translation replaces the text and is cut at the field's last byte; an empty translation makes the
// text empty. False when keywords with pattern characters take too long: some texts are then not
// translated.
bool localizeRecord(const ppd_file_t& ppd, std::u16string_view text, std::u16string_view language);

}  // namespace kelm::ppdtext
