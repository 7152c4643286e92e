// A PPD's texts in one language: the translation lines of a file, and a record shown with them.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/localizer.hpp"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "ppdtext/record_parts.hpp"
#include "ppdtext/text_index.hpp"
#include "ppdtext/unicode_text.hpp"

namespace kelm::ppdtext {
namespace {

// The yen sign is intended. The pattern's asterisk repeats it, so it is optional, and the line's
// own asterisk is outside the match. The full stop matches any character.
constexpr std::u16string_view kOptionTranslation = u"(\u00A5*%@.Translation) (%@)/(.*?):";
constexpr std::u16string_view kChoiceTranslation = u"(\u00A5*%@.%@) (%@)/(.*?):";

constexpr std::u16string_view kLanguageLine = uR"re(\*%@\..*)re";

constexpr std::u16string_view kOptionSubject = u"Translation";

// Keywords of records are shorter than this, so no record has a longer one.
constexpr std::size_t kMaxKeyword = 64;

// The full stop of a pattern matches one character, which can become three units when its case is
// folded.
constexpr std::size_t kMaxPoint = 3;

// Neither `subject` nor `keyword` contains a slash.
std::u16string lineKey(std::u16string_view subject, std::u16string_view keyword) {
  return std::u16string(subject).append(u"/").append(keyword);
}

char16_t lowerUnit(char16_t c) {
  return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c - u'A' + u'a') : c;
}

std::u16string lowerAscii(std::u16string_view text) {
  std::u16string lower(text);
  std::ranges::transform(lower, lower.begin(), lowerUnit);
  return lower;
}

// Letters that are equal to letters of ASCII when case is ignored: the long s, the Kelvin sign, the
// sharp s, and the ligatures from ff to st.
bool isUnusual(char16_t c) {
  return c == 0x17F || c == 0x212A || c == 0xDF || c == 0x1E9E || (c >= 0xFB00 && c <= 0xFB06);
}

bool isHighSurrogate(char16_t c) { return (c & 0xFC00) == 0xD800; }

// Whether a keyword has no pattern character but ".", so that it matches within a line.
bool hasOnlyPoints(std::u16string_view keyword) {
  return !keyword.empty() &&
         std::ranges::all_of(keyword, [](char16_t c) { return c == u'.' || isPlainUnit(c); });
}

// The plain units at the start of `text`, as far as a keyword of a record goes.
std::u16string_view plainStart(std::u16string_view text) {
  std::size_t size = 0;
  while (size < std::min(text.size(), kMaxKeyword) && isPlainUnit(text[size])) ++size;
  return text.substr(0, size);
}

// A translation is cut at the field's last byte, even within a character.
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

std::size_t localizationEnd(std::u16string_view text, std::u16string_view language,
                            SearchBudget& budget) {
  if (isPlain(language)) {
    const std::size_t last = text.rfind(formatted(u"*%@.", {language}));
    if (last == std::u16string_view::npos) return 0;
    return static_cast<std::size_t>(
        std::find_if(text.begin() + static_cast<std::ptrdiff_t>(last), text.end(), isLineEnd) -
        text.begin());
  }
  const Pattern pattern(formatted(kLanguageLine, {language}));
  if (!pattern.isValid()) return text.size();
  const auto matches = pattern.allMatches(text, budget);
  return matches.empty() ? 0 : matches.back().whole().end();
}

TranslationLines::TranslationLines(std::u16string_view text, std::u16string_view language)
    : text_(text), language_(lowerAscii(language)) {
  const auto unusual = std::ranges::find_if(text, isUnusual) != text.end();
  for (std::size_t start = 0; start < text.size();) {
    const auto end = static_cast<std::size_t>(
        std::find_if(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(), isLineEnd) -
        text.begin());
    addLine({start, end - start});
    if (unusual) addUnusual({start, end - start});
    start = end + 1;
  }
}

void TranslationLines::addLine(TextRange line) {
  const char16_t first = language_.front();
  for (std::size_t at = line.start; at + language_.size() < line.end(); ++at) {
    if (lowerUnit(text_[at]) == first &&
        std::ranges::equal(text_.substr(at, language_.size()), language_, {}, lowerUnit)) {
      addAt(at + language_.size(), line);
    }
  }
}

// `place` is the one after the language, where these follow: any character, the subject, a space,
// the keyword, a slash, and the translation up to the first colon.
void TranslationLines::addAt(std::size_t place, TextRange line) {
  const std::u16string_view rest = text_.substr(place, line.end() - place);
  const std::size_t point = rest.size() > 1 && isHighSurrogate(rest[0]) ? 2 : 1;
  const std::u16string_view subject = plainStart(rest.substr(point));
  const std::size_t space = point + subject.size();
  if (subject.empty() || space >= rest.size() || rest[space] != u' ') return;
  std::vector<TextRange>& lines = bySubject_[lowerAscii(subject)];
  if (lines.empty() || lines.back() != line) lines.push_back(line);
  const std::u16string_view keyword = plainStart(rest.substr(space + 1));
  const std::size_t slash = space + 1 + keyword.size();
  if (keyword.empty() || slash >= rest.size() || rest[slash] != u'/') return;
  const std::size_t colon = rest.find(u':', slash + 1);
  if (colon == std::u16string_view::npos) return;
  first_.try_emplace(lineKey(lowerAscii(subject), lowerAscii(keyword)),
                     TextRange{place + slash + 1, colon - slash - 1});
}

void TranslationLines::addUnusual(TextRange line) {
  const std::u16string_view text = pieceOf(text_, line);
  const std::size_t last = text.rfind(u'/');
  if (last == std::u16string_view::npos) return;
  if (std::ranges::none_of(text.substr(0, last), isUnusual)) return;
  unusualLines_.push_back(line);
  for (std::size_t slash = text.find(u'/'); slash != std::u16string_view::npos;
       slash = text.find(u'/', slash + 1)) {
    addUnusualBefore(slash, line);
  }
}

// Finds what could be a language, any character, a subject, a space and a keyword before the slash,
// ignoring case.
void TranslationLines::addUnusualBefore(std::size_t slash, TextRange line) {
  const std::size_t reach = language_.size() + kMaxPoint + kMaxKeyword + 1 + kMaxKeyword;
  const std::size_t from = slash - std::min(slash, reach);
  const std::u16string_view before = pieceOf(text_, line).substr(from, slash - from);
  const std::size_t space = before.rfind(u' ');
  if (space == std::u16string_view::npos || std::ranges::none_of(before, isUnusual)) return;
  const std::u16string keyword = foldedCase(before.substr(space + 1));
  const std::u16string words = foldedCase(before.substr(0, space));
  if (!isPlain(keyword)) return;
  for (std::size_t at = words.find(language_); at != std::u16string::npos;
       at = words.find(language_, at + 1)) {
    for (std::size_t point = 1; point <= kMaxPoint; ++point) {
      const std::size_t subject = std::min(at + language_.size() + point, words.size());
      if (!isPlain(words.substr(subject))) continue;
      std::vector<TextRange>& lines = unusual_[lineKey(words.substr(subject), keyword)];
      if (lines.empty() || lines.back() != line) lines.push_back(line);
    }
  }
}

std::optional<TextRange> TranslationLines::first(std::u16string_view subject,
                                                 std::u16string_view keyword) const {
  const auto found = first_.find(lineKey(lowerAscii(subject), lowerAscii(keyword)));
  return found == first_.end() ? std::nullopt : std::optional(found->second);
}

std::vector<TextRange> TranslationLines::unusual(std::u16string_view subject,
                                                 std::u16string_view keyword) const {
  const auto found = unusual_.find(lineKey(lowerAscii(subject), lowerAscii(keyword)));
  return found == unusual_.end() ? std::vector<TextRange>() : found->second;
}

std::vector<TextRange> TranslationLines::linesOf(std::u16string_view subject) const {
  const auto found = bySubject_.find(lowerAscii(subject));
  if (found == bySubject_.end()) return unusualLines_;
  std::vector<TextRange> lines;
  std::ranges::set_union(found->second, unusualLines_, std::back_inserter(lines), {},
                         &TextRange::start, &TextRange::start);
  return lines;
}

Localizer::Localizer(std::u16string_view text, std::u16string_view language, SearchBudget& budget)
    : text_(text),
      language_(language),
      budget_(budget),
      end_(localizationEnd(text, language, budget)) {
  if (isPlain(language)) lines_.emplace(text, language);
}

std::optional<TextRange> Localizer::firstOfPlain(std::u16string_view option,
                                                 std::optional<std::u16string_view> choice) const {
  const std::u16string_view subject = choice ? option : kOptionSubject;
  const std::u16string_view keyword = choice.value_or(option);
  auto first = lines_->first(subject, keyword);
  const std::vector<TextRange> unusual = lines_->unusual(subject, keyword);
  if (unusual.empty()) return first;
  const Pattern pattern(translationPattern(language_, option, choice), Letters::kAnyCase);
  for (const TextRange& line : unusual) {
    if (first && first->start < line.start) break;
    const auto match = pattern.firstMatch(pieceOf(text_, line), budget_);
    if (!match) continue;
    TextRange found = match->groups[kTranslationGroup].value_or(TextRange());
    found.start += line.start;
    return found;
  }
  return first;
}

// The first match before the end of the language counts, unless it is empty.
std::optional<std::u16string> Localizer::textByPattern(const Pattern& pattern,
                                                       const std::vector<TextRange>& pieces) const {
  for (const TextRange& piece : pieces) {
    if (piece.start >= end_) break;
    const TextRange counting{piece.start, std::min(piece.end(), end_) - piece.start};
    const auto match = pattern.firstMatch(pieceOf(text_, counting), budget_);
    if (!match) continue;
    auto text = captured(pieceOf(text_, counting), *match, kTranslationGroup);
    return text && !text->empty() ? text : std::u16string();
  }
  const bool isDefined = std::ranges::any_of(pieces, [&](const TextRange& piece) {
    return pattern.firstMatch(pieceOf(text_, piece), budget_).has_value();
  });
  return isDefined ? std::optional<std::u16string>(u"") : std::nullopt;
}

std::optional<std::u16string> Localizer::textFor(std::u16string_view option,
                                                 std::optional<std::u16string_view> choice) const {
  if (lines_ && isPlain(option) && isPlain(choice.value_or(option))) {
    const auto first = firstOfPlain(option, choice);
    if (!first) return std::nullopt;
    return std::u16string(first->end() < end_ ? pieceOf(text_, *first) : u"");
  }
  const bool isInLines = lines_ && isPlain(option) && hasOnlyPoints(*choice);
  const Pattern pattern(translationPattern(language_, option, choice), Letters::kAnyCase);
  return textByPattern(
      pattern, isInLines ? lines_->linesOf(option) : std::vector{TextRange{0, text_.size()}});
}

bool localizeRecord(const ppd_file_t& ppd, std::u16string_view text, std::u16string_view language) {
  SearchBudget budget(text);
  const Localizer localizer(text, language, budget);
  for (const ppd_group_t& group : groupsOf(ppd)) {
    for (ppd_option_t& option : optionsOf(group)) localizeOption(option, localizer);
  }
  return !budget.isExceeded();
}

}  // namespace kelm::ppdtext
