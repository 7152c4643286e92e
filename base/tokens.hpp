// Pieces of a text between delimiters, as the standard tokenizer (strtok) finds them.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string_view>

namespace kelm::base {

// Removes the next token, and the delimiter that ends it, from the front of `rest`. Runs of
// `delimiter` separate tokens; nothing when only delimiters are left.
std::optional<std::string_view> nextToken(std::string_view& rest, char delimiter);

}  // namespace kelm::base
