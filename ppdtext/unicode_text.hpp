// Text in two encodings: UTF-16, as the patterns see it, and UTF-8, as files and records hold it.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kelm::ppdtext {

// Nothing when `utf8` is not valid UTF-8, or is too long for ICU's 32-bit lengths.
std::optional<std::u16string> toUtf16(std::string_view utf8);

// Half of a surrogate pair becomes U+FFFD.
std::string toUtf8(std::u16string_view text);

// The longest beginning of `utf8` that has at most `bytes` bytes and ends between two characters.
std::string_view wholeCharacters(std::string_view utf8, std::size_t bytes);

// The upper-case form in no particular language; it may be longer than `text`.
std::u16string upperCase(std::u16string_view text);

// The form in which two texts that differ only in case are equal.
std::u16string foldedCase(std::u16string_view text);

}  // namespace kelm::ppdtext
