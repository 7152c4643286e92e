// The simplest possible reader of PPDs: it searches the whole text for every pattern, whatever time
// that takes. The product must find the same.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ppdtext/model.hpp"
#include "ppdtext/pattern.hpp"

namespace kelm::ppdtext::plain {

std::vector<Match> allMatches(std::u16string_view text, const std::u16string& pattern);
std::optional<Match> firstMatch(std::u16string_view text, const std::u16string& pattern,
                                Letters letters = Letters::kExact);

TextRange optionRange(std::u16string_view text, std::u16string_view keyword);
TextRange groupRange(std::u16string_view text, std::u16string_view keyword);
std::optional<Model> model(std::u16string_view text);
std::size_t localizationEnd(std::u16string_view text, std::u16string_view language);
std::optional<std::u16string> translation(std::u16string_view text, std::u16string_view language,
                                          std::u16string_view option,
                                          std::optional<std::u16string_view> choice);

}  // namespace kelm::ppdtext::plain
