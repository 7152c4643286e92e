// Hex text: the form in which free text is sent to the printer.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kelm::base {

// Size in bytes, terminator included, of the buffers for lines, option values and texts.
inline constexpr std::size_t kTextBufferSize = 4096;

// The number of bytes whose hex text fits into a text buffer: 2047.
inline constexpr std::size_t kHexTextMaxBytes = (kTextBufferSize - 1) / 2;

// Each byte of `bytes` as two upper-case characters; a byte below 0x10 is a space and one digit
// ("%2X": the printer's firmware expects the space). Twice as long as its argument.
std::string hexText(std::string_view bytes);

// hexText of the first kHexTextMaxBytes bytes: what fits into a text buffer.
std::string hexTextInBuffer(std::string_view bytes);

}  // namespace kelm::base
