// A PPD's texts in one language: the translation lines of a file, and a record shown with them.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/localizer.hpp"

#include <algorithm>
#include <cstring>

#include "ppdtext/record_parts.hpp"
#include "ppdtext/unicode_text.hpp"

namespace kelm::ppdtext {
namespace {

// The yen sign is intended: the asterisk repeats it, so it is optional, and the line's own asterisk
// is outside the match. The point matches any character.
constexpr std::u16string_view kOptionTranslation = u"(\u00A5*%@.Translation) (%@)/(.*?):";
constexpr std::u16string_view kChoiceTranslation = u"(\u00A5*%@.%@) (%@)/(.*?):";

constexpr std::u16string_view kLanguageLine = uR"re(\*%@\..*)re";

constexpr std::u16string_view kOptionSubject = u"Translation";

// Keywords of records are shorter than this; longer ones are in no record's lines.
constexpr std::size_t kMaxKeyword = 64;

// The point of a pattern matches one character, which is up to three units when its case is folded.
constexpr std::size_t kMaxPoint = 3;

// Neither half has a slash.
std::u16string lineKey(std::u16string_view subject, std::u16string_view keyword) {
  return std::u16string(subject).append(u"/").append(keyword);
}

bool isAscii(std::u16string_view text) {
  return std::ranges::all_of(text, [](char16_t c) { return c < 0x80; });
}

// A translation is cut at the field's last byte, be it within a character.
template <std::size_t Size>
void showText(char (&field)[Size], std::u16string_view text) {
  std::memset(field, 0, Size);
  toUtf8(text).copy(field, Size - 1);
}

void localizeOption(ppd_option_t& option, const Localizer& localizer) {
  const auto keyword = toUtf16(option.keyword);
  if (!keyword) return;
  if (const auto text = localizer.textFor(*keyword, std::nullopt)) showText(option.text, *text);
  for (ppd_choice_t& choice : choicesOf(option)) {
    const auto choiceKeyword = toUtf16(choice.choice);
    if (!choiceKeyword) continue;
    if (const auto text = localizer.textFor(*keyword, *choiceKeyword)) showText(choice.text, *text);
  }
}

}  // namespace

std::u16string translationPattern(std::u16string_view language, std::u16string_view option,
                                  std::optional<std::u16string_view> choice) {
  return choice ? formatted(kChoiceTranslation, {language, option, *choice})
                : formatted(kOptionTranslation, {language, option});
}

std::size_t localizationEnd(std::u16string_view text, std::u16string_view language) {
  const Pattern pattern(formatted(kLanguageLine, {language}));
  if (!pattern.isValid()) return text.size();
  const auto matches = pattern.allMatches(text);
  return matches.empty() ? 0 : matches.back().whole().end();
}

TranslationLines::TranslationLines(std::u16string_view text, std::u16string_view language)
    : text_(text), language_(isPlain(language) ? foldedCase(language) : u"") {
  if (language_.empty()) return;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(u'\n', start), text.size());
    addLine({start, end - start});
    start = end + 1;
  }
}

void TranslationLines::addLine(TextRange line) {
  const std::u16string_view text = pieceOf(text_, line);
  const std::size_t reach = language_.size() + kMaxPoint + kMaxKeyword + 1 + kMaxKeyword;
  std::size_t slash = text.find(u'/');
  while (slash != std::u16string_view::npos) {
    const std::size_t from = slash - std::min(slash, reach);
    addSlash(text.substr(from, slash - from), line);
    slash = text.find(u'/', slash + 1);
  }
}

// `before` is what the line has before a slash, as far as it matters.
void TranslationLines::addSlash(std::u16string_view before, TextRange line) {
  const std::size_t blank = before.rfind(u' ');
  if (blank == std::u16string_view::npos) return;
  const std::u16string keyword = foldedCase(before.substr(blank + 1));
  if (isPlain(keyword)) addSubjects(before.substr(0, blank), keyword, line);
}

// The subject is what follows the language and the point at the end of `words`.
void TranslationLines::addSubjects(std::u16string_view words, std::u16string_view keyword,
                                   TextRange line) {
  const std::size_t maxPoint = isAscii(words) ? 1 : kMaxPoint;
  const std::u16string folded = foldedCase(words);
  std::size_t at = folded.find(language_);
  for (; at != std::u16string::npos; at = folded.find(language_, at + 1)) {
    for (std::size_t point = 1; point <= maxPoint; ++point) {
      const std::size_t subject = std::min(at + language_.size() + point, folded.size());
      if (!isPlain(folded.substr(subject))) continue;
      std::vector<TextRange>& lines = lines_[lineKey(folded.substr(subject), keyword)];
      if (lines.empty() || lines.back() != line) lines.push_back(line);
    }
  }
}

SearchArea TranslationLines::linesOf(std::u16string_view subject,
                                     std::u16string_view keyword) const {
  if (language_.empty() || !isPlain(subject) || !isPlain(keyword)) {
    return SearchArea::wholeText(text_);
  }
  const auto found = lines_.find(lineKey(foldedCase(subject), foldedCase(keyword)));
  return {text_, found == lines_.end() ? std::vector<TextRange>() : found->second};
}

Localizer::Localizer(std::u16string_view text, std::u16string_view language)
    : text_(text),
      language_(language),
      end_(localizationEnd(text, language)),
      lines_(text, language) {}

std::optional<std::u16string> Localizer::textFor(std::u16string_view option,
                                                 std::optional<std::u16string_view> choice) const {
  const SearchArea lines =
      choice ? lines_.linesOf(option, *choice) : lines_.linesOf(kOptionSubject, option);
  if (lines.pieces().empty()) return std::nullopt;
  const Pattern pattern(translationPattern(language_, option, choice), Letters::kAnyCase);
  if (const auto match = lines.before(end_).firstMatch(pattern)) {
    auto text = captured(text_, *match, kTranslationGroup);
    if (text && !text->empty()) return text;
  }
  return lines.firstMatch(pattern) ? std::optional<std::u16string>(u"") : std::nullopt;
}

void localizeRecord(const ppd_file_t& ppd, std::u16string_view text, std::u16string_view language) {
  const Localizer localizer(text, language);
  for (const ppd_group_t& group : groupsOf(ppd)) {
    for (ppd_option_t& option : optionsOf(group)) localizeOption(option, localizer);
  }
}

}  // namespace kelm::ppdtext
