// UTF-8 validation and lengths in UTF-16 code units, the unit of the printer's text limits.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace kelm::base {

// The number of UTF-16 code units of `utf8` (a character outside the basic plane counts as 2);
// nothing when it is not valid UTF-8 (RFC 3629: no overlong forms, no surrogates, up to U+10FFFF).
std::optional<std::size_t> utf16Length(std::string_view utf8);

// The bytes of the first character of `utf8`, which must be valid and not empty.
std::string_view firstCharacter(std::string_view utf8);

}  // namespace kelm::base
