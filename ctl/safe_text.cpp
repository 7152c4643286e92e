// Text of unknown origin, made safe for a terminal.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/safe_text.hpp"

#include <cstdio>

namespace kelm::ctl {
namespace {

constexpr unsigned char kC1Lead = 0xC2;  // U+0080 to U+009F are this byte and 80 to 9F

bool isC0OrDelete(unsigned char c) { return c < 0x20 || c == 0x7F; }

bool beginsC1(std::string_view text) {
  if (text.size() < 2 || static_cast<unsigned char>(text[0]) != kC1Lead) return false;
  const auto second = static_cast<unsigned char>(text[1]);
  return second >= 0x80 && second <= 0x9F;
}

std::string escaped(unsigned char codePoint) {
  char text[8];
  std::snprintf(text, sizeof text, "\\u%04X", codePoint);
  return text;
}

}  // namespace

std::string safeText(std::string_view utf8) {
  std::string safe;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto c = static_cast<unsigned char>(utf8[i]);
    if (beginsC1(utf8.substr(i))) {
      safe += escaped(static_cast<unsigned char>(utf8[++i]));
    } else if (isC0OrDelete(c)) {
      safe += escaped(c);
    } else {
      safe += c == '\\' ? "\\\\" : std::string(1, utf8[i]);
    }
  }
  return safe;
}

}  // namespace kelm::ctl
