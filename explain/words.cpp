// Words that users type, and the known word that is nearest to one.
// SPDX-License-Identifier: Apache-2.0
#include "explain/words.hpp"

#include <algorithm>
#include <array>
#include <cctype>
#include <numeric>

namespace kelm::explain {
namespace {

constexpr std::size_t kLongestCompared = 128;
constexpr std::size_t kLeastFront = 4;  // of a name that is cut off

}  // namespace

std::size_t editDistance(std::string_view one, std::string_view other) {
  if (std::max(one.size(), other.size()) > kLongestCompared) {
    return std::max(one.size(), other.size());
  }
  const auto lower = [](char c) { return std::tolower(static_cast<unsigned char>(c)); };
  using Row = std::array<std::size_t, kLongestCompared + 1>;
  Row row{};
  Row last{};
  Row beforeLast{};
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < one.size(); ++i) {
    beforeLast = last;
    last = row;
    row[0] = i + 1;
    for (std::size_t j = 0; j < other.size(); ++j) {
      const auto same = [&](std::size_t a, std::size_t b) {
        return lower(one[a]) == lower(other[b]);
      };
      row[j + 1] = std::min({last[j] + (same(i, j) ? 0 : 1), row[j] + 1, last[j + 1] + 1});
      const bool swapped = i > 0 && j > 0 && same(i, j - 1) && same(i - 1, j);
      if (swapped) row[j + 1] = std::min(row[j + 1], beforeLast[j - 1] + 1);
    }
  }
  return row[other.size()];
}

bool sameWord(std::string_view one, std::string_view other) {
  return editDistance(one, other) == 0;
}

bool isAmong(std::string_view word, const std::vector<std::string>& words) {
  return std::ranges::any_of(words, [&](const std::string& one) { return sameWord(word, one); });
}

std::string nearestOf(std::string_view text, const std::vector<std::string>& candidates) {
  const std::string* nearest = nullptr;
  std::size_t least = std::max<std::size_t>(text.size() / 3, 1) + 1;
  for (const std::string& candidate : candidates) {
    std::size_t distance = editDistance(text, candidate);
    const bool isCutOff = text.size() >= kLeastFront && candidate.size() > text.size() &&
                          sameWord(text, std::string_view(candidate).substr(0, text.size()));
    if (isCutOff) distance = std::min<std::size_t>(distance, 1);
    if (distance >= least) continue;
    least = distance;
    nearest = &candidate;
  }
  return nearest == nullptr ? "" : *nearest;
}

bool isDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool isNumber(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  return isDigits(text);
}

std::vector<std::string> wordsOf(std::string_view list) {
  std::vector<std::string> words;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find(','), list.size());
    words.emplace_back(list.substr(0, end));
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return words;
}

}  // namespace kelm::explain
