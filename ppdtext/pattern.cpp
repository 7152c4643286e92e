// Regular expressions as PPD texts are searched with: ICU's, bounded in time and memory.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/pattern.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace kelm::ppdtext {
namespace {

// Keywords of strangers become patterns, so a search may run away. A unit of time is 10,000 steps
// of ICU's matcher. A search has 500 of them, a tenth of a second or so, and for long texts one
// more for every 4096 units: at least twice what the patterns of plain keywords need for a text
// full of matches. The memory is that of the matcher's backtracking.
constexpr std::int32_t kTimeUnits = 500;
constexpr std::size_t kTextUnitsPerTimeUnit = 4096;
constexpr std::int32_t kStackBytes = 1 << 20;

constexpr std::size_t kMaxUnits = std::numeric_limits<std::int32_t>::max();

constexpr std::u16string_view kArgument = u"%@";

// The current match of `search`.
Match matchOf(URegularExpression* search, UErrorCode* status) {
  const std::int32_t captures = uregex_groupCount(search, status);
  Match match;
  for (std::int32_t i = 0; i <= captures; ++i) {
    const std::int32_t start = uregex_start(search, i, status);
    const std::int32_t end = uregex_end(search, i, status);
    match.groups.emplace_back();
    if (start < 0) continue;
    match.groups.back() =
        TextRange{static_cast<std::size_t>(start), static_cast<std::size_t>(end - start)};
  }
  return match;
}

}  // namespace

TextRange unionOf(TextRange a, TextRange b) {
  const std::size_t start = std::min(a.start, b.start);
  return {start, std::max(a.end(), b.end()) - start};
}

std::u16string_view pieceOf(std::u16string_view text, TextRange range) {
  return text.substr(range.start, range.length);
}

std::optional<std::u16string> captured(std::u16string_view text, const Match& match,
                                       std::size_t index) {
  if (index >= match.groups.size() || !match.groups[index]) return std::nullopt;
  return std::u16string(pieceOf(text, *match.groups[index]));
}

Pattern::Pattern(std::u16string_view pattern, Letters letters) {
  if (pattern.size() > kMaxUnits) return;
  const std::uint32_t flags =
      letters == Letters::kAnyCase ? std::uint32_t{UREGEX_CASE_INSENSITIVE} : 0U;
  UErrorCode status = U_ZERO_ERROR;
  expression_.reset(uregex_open(pattern.data(), static_cast<std::int32_t>(pattern.size()), flags,
                                nullptr, &status));
  if (U_FAILURE(status)) expression_.reset();
}

// Null when nothing can be searched. The copy shares the compiled expression; the text is not
// copied.
Pattern::Expression Pattern::searchOf(std::u16string_view text) const {
  if (!isValid() || text.size() > kMaxUnits) return nullptr;
  const char16_t* units = text.empty() ? u"" : text.data();
  UErrorCode status = U_ZERO_ERROR;
  Expression search(uregex_clone(expression_.get(), &status));
  const std::size_t textTime = text.size() / kTextUnitsPerTimeUnit;
  uregex_setTimeLimit(search.get(), kTimeUnits + static_cast<std::int32_t>(textTime), &status);
  uregex_setStackLimit(search.get(), kStackBytes, &status);
  uregex_setText(search.get(), units, static_cast<std::int32_t>(text.size()), &status);
  return U_SUCCESS(status) ? std::move(search) : nullptr;
}

std::vector<Match> Pattern::allMatches(std::u16string_view text) const {
  std::vector<Match> matches;
  const Expression search = searchOf(text);
  if (search == nullptr) return matches;
  UErrorCode status = U_ZERO_ERROR;
  while (uregex_findNext(search.get(), &status) != 0) {
    matches.push_back(matchOf(search.get(), &status));
  }
  if (U_FAILURE(status)) matches.clear();
  return matches;
}

std::optional<Match> Pattern::firstMatch(std::u16string_view text) const {
  const Expression search = searchOf(text);
  if (search == nullptr) return std::nullopt;
  UErrorCode status = U_ZERO_ERROR;
  if (uregex_findNext(search.get(), &status) == 0) return std::nullopt;
  return matchOf(search.get(), &status);
}

std::u16string formatted(std::u16string_view format,
                         std::initializer_list<std::u16string_view> arguments) {
  std::u16string result;
  for (const std::u16string_view argument : arguments) {
    const std::size_t at = format.find(kArgument);
    result.append(format.substr(0, at)).append(argument);
    format.remove_prefix(at + kArgument.size());
  }
  return result.append(format);
}

bool isPlainUnit(char16_t c) {
  return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9') ||
         c == u'_' || c == u'-';
}

bool isPlain(std::u16string_view keyword) {
  return !keyword.empty() && std::all_of(keyword.begin(), keyword.end(), isPlainUnit);
}

}  // namespace kelm::ppdtext
