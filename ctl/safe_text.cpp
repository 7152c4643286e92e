// Text of unknown origin, made safe for a terminal.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/safe_text.hpp"

#include <cstdio>

#include "base/utf.hpp"

namespace kelm::ctl {
namespace {

struct Range {
  unsigned first;
  unsigned last;
};

// No code point beyond the basic plane controls a terminal.
constexpr Range kControls[] = {
    {0x00, 0x1F},      // C0
    {0x7F, 0x9F},      // delete, C1
    {0x2028, 0x202E},  // line and paragraph separator, bidirectional embeddings and overrides
    {0x2066, 0x2069},  // bidirectional isolates
};

bool isControl(unsigned codePoint) {
  for (const Range& range : kControls) {
    if (codePoint >= range.first && codePoint <= range.last) return true;
  }
  return false;
}

std::string escapedCharacter(unsigned codePoint) {
  char text[8];
  std::snprintf(text, sizeof text, "\\u%04X", codePoint & 0xFFFFU);
  return text;
}

std::string escapedByte(char byte) {
  char text[8];
  std::snprintf(text, sizeof text, "\\x%02X", static_cast<unsigned char>(byte));
  return text;
}

// The code point of one valid character; 0xFFFF for four bytes, which are never a control.
unsigned codePointOf(std::string_view character) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(character[i]); };
  switch (character.size()) {
    case 1:
      return byte(0);
    case 2:
      return (byte(0) & 0x1FU) << 6 | (byte(1) & 0x3FU);
    case 3:
      return (byte(0) & 0x0FU) << 12 | (byte(1) & 0x3FU) << 6 | (byte(2) & 0x3FU);
    default:
      return 0xFFFF;
  }
}

// The length of the valid UTF-8 character at the front of `text`; 0 without one.
std::size_t characterLength(std::string_view text) {
  constexpr std::size_t kLongest = 4;
  if (static_cast<unsigned char>(text.front()) < 0x80) return 1;
  for (std::size_t length = 2; length <= kLongest && length <= text.size(); ++length) {
    if (base::utf16Length(text.substr(0, length))) return length;
  }
  return 0;
}

std::string withoutControl(std::string_view character) {
  const unsigned codePoint = codePointOf(character);
  return isControl(codePoint) ? escapedCharacter(codePoint) : std::string(character);
}

// `text` with `safe` of each character, and every byte that is not UTF-8 escaped.
template <class Safe>
std::string ofEachCharacter(std::string_view text, Safe safe) {
  std::string all;
  while (!text.empty()) {
    const std::size_t length = characterLength(text);
    all += length > 0 ? safe(text.substr(0, length)) : escapedByte(text.front());
    text.remove_prefix(length > 0 ? length : 1);
  }
  return all;
}

}  // namespace

std::string safeText(std::string_view text) {
  return ofEachCharacter(text, [](std::string_view character) {
    return character == "\\" ? "\\\\" : withoutControl(character);
  });
}

std::string shellWord(std::string_view text) {
  constexpr std::string_view kHarmless =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789%+,-./:=@_";
  if (!text.empty() && text.find_first_not_of(kHarmless) == text.npos) return std::string(text);
  std::string word = "'";
  for (const char c : text) word += c == '\'' ? std::string(R"('"'"')") : std::string(1, c);
  return word + '\'';
}

// The line feeds are those of the layout.
std::string safeJson(std::string_view json) {
  return ofEachCharacter(json, [](std::string_view character) {
    return character == "\n" ? "\n" : withoutControl(character);
  });
}

}  // namespace kelm::ctl
