// Regular expressions as PPD texts are searched with: ICU's, bounded in time and memory.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/pattern.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace kelm::ppdtext {
namespace {

// About a second for the PPD of one printer, and another second for each megabyte: enough for
// dozens of options with pattern characters in their keywords.
constexpr std::int64_t kSteps = 20'000'000;
constexpr std::int64_t kStepsPerTextUnit = 40;

// ICU counts no steps while it looks for a place to start, or for copying the expression.
constexpr std::int64_t kTextUnitsPerStep = 8;
constexpr std::int64_t kStepsPerSearch = 200;

constexpr std::int32_t kStackBytes = 1 << 20;  // of the matcher's backtracking

constexpr std::size_t kMaxUnits = std::numeric_limits<std::int32_t>::max();

constexpr std::u16string_view kArgument = u"%@";

constexpr std::int64_t kStepsBetweenCalls = 10'000;  // as ICU's matcher does

// ICU calls it from time to time; false ends the search.
UBool spendSteps(const void* context, std::int32_t /*total*/) {
  auto* budget = static_cast<SearchBudget*>(const_cast<void*>(context));
  budget->spend(kStepsBetweenCalls);
  return budget->isExceeded() ? 0 : 1;
}

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

SearchBudget::SearchBudget(std::u16string_view text)
    : left_(kSteps + static_cast<std::int64_t>(text.size()) * kStepsPerTextUnit) {}

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
Pattern::Expression Pattern::searchOf(std::u16string_view text, SearchBudget& budget) const {
  if (!isValid() || text.size() > kMaxUnits || budget.isExceeded()) return nullptr;
  budget.spend(static_cast<std::int64_t>(text.size()) / kTextUnitsPerStep + kStepsPerSearch);
  const char16_t* units = text.empty() ? u"" : text.data();
  UErrorCode status = U_ZERO_ERROR;
  Expression search(uregex_clone(expression_.get(), &status));
  uregex_setMatchCallback(search.get(), spendSteps, &budget, &status);
  uregex_setStackLimit(search.get(), kStackBytes, &status);
  uregex_setText(search.get(), units, static_cast<std::int32_t>(text.size()), &status);
  return U_SUCCESS(status) ? std::move(search) : nullptr;
}

std::vector<Match> Pattern::allMatches(std::u16string_view text, SearchBudget& budget) const {
  std::vector<Match> matches;
  const Expression search = searchOf(text, budget);
  if (search == nullptr) return matches;
  UErrorCode status = U_ZERO_ERROR;
  while (uregex_findNext(search.get(), &status) != 0) {
    matches.push_back(matchOf(search.get(), &status));
  }
  if (U_FAILURE(status)) budget.exceed();
  return matches;
}

std::optional<Match> Pattern::firstMatch(std::u16string_view text, SearchBudget& budget) const {
  const Expression search = searchOf(text, budget);
  if (search == nullptr) return std::nullopt;
  UErrorCode status = U_ZERO_ERROR;
  const bool found = uregex_findNext(search.get(), &status) != 0;
  if (U_FAILURE(status)) budget.exceed();
  return found ? std::optional(matchOf(search.get(), &status)) : std::nullopt;
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
  constexpr std::u16string_view kOther = uR"re(\^$.|?*+()[]{}/:")re";
  return c > u' ' && c < 0x7F && kOther.find(c) == std::u16string_view::npos;
}

bool isPlain(std::u16string_view keyword) {
  return !keyword.empty() && std::all_of(keyword.begin(), keyword.end(), isPlainUnit);
}

}  // namespace kelm::ppdtext
