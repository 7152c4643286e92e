// Words that users type, and the known word that is nearest to one.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kelm::explain {

// The number of characters to insert, remove or replace, and of neighbours to swap, to turn one
// text into the other, without regard to case. For texts longer than 128 bytes, the length of the
// longer one.
std::size_t editDistance(std::string_view one, std::string_view other);

// In any letter case.
bool sameWord(std::string_view one, std::string_view other);
bool isAmong(std::string_view word, const std::vector<std::string>& words);

// The candidate that was probably meant by `text`; empty when none is near.
std::string nearestOf(std::string_view text, const std::vector<std::string>& candidates);

// Whether it has only digits, and at least one.
bool isDigits(std::string_view text);

// A whole number, with or without a sign.
bool isNumber(std::string_view text);

// The words of a list with commas between them.
std::vector<std::string> wordsOf(std::string_view list);

}  // namespace kelm::explain
