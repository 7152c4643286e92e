// Hex text: the form in which free text is sent to the printer.
// SPDX-License-Identifier: Apache-2.0
#include "base/hex_text.hpp"

namespace kelm::base {

std::string hexText(std::string_view bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  text.reserve(bytes.size() * 2);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += byte < 0x10 ? ' ' : kDigits[byte >> 4];
    text += kDigits[byte & 0xF];
  }
  return text;
}

std::string hexTextInBuffer(std::string_view bytes) {
  return hexText(bytes.substr(0, kHexTextMaxBytes));
}

}  // namespace kelm::base
