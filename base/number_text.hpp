// Numbers in job texts: read and written as in the C locale, whatever the job's language.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace kelm::base {

// The leading decimal number of `text` as atoi reads it: optional white space and sign, 0 without
// digits. A number beyond the range of long becomes the nearest limit of that range; the result is
// cut to 32 bits.
std::int32_t leadingInteger(const char* text);

// The leading number of `text` as strtod reads it in the C locale; 0 when there is none.
double leadingReal(const char* text);

// The number that is all of `text`: digits, which may have a sign "-", a decimal point and an
// exponent. Nothing for any other text, and for a number beyond the range of double.
std::optional<double> wholeReal(std::string_view text);

// The low 32 bits of `value`, as a 32-bit variable keeps them.
constexpr std::int32_t cutTo32Bits(std::int64_t value) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

}  // namespace kelm::base
