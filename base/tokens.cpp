// Pieces of a text between delimiters, as the standard tokenizer (strtok) finds them.
// SPDX-License-Identifier: Apache-2.0
#include "base/tokens.hpp"

#include <algorithm>

namespace kelm::base {

std::optional<std::string_view> nextToken(std::string_view& rest, char delimiter) {
  rest.remove_prefix(std::min(rest.find_first_not_of(delimiter), rest.size()));
  if (rest.empty()) return std::nullopt;
  const std::size_t end = std::min(rest.find(delimiter), rest.size());
  const std::string_view token = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return token;
}

}  // namespace kelm::base
