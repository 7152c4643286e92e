// UTF-8 validation and lengths in UTF-16 code units.
// SPDX-License-Identifier: Apache-2.0
#include "base/utf.hpp"

#include <cstdint>

namespace kelm::base {
namespace {

constexpr std::uint32_t kFirstSupplementary = 0x10000;

// The length in bytes of the character that begins with `lead`; 0 when none does.
std::size_t sequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

bool isScalarOfLength(std::uint32_t codePoint, std::size_t length) {
  constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, kFirstSupplementary};
  const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
  return codePoint >= kSmallest[length] && codePoint <= 0x10FFFF && !surrogate;
}

// The character in the first `length` bytes of `text` (not empty); nothing when it is invalid.
std::optional<std::uint32_t> decode(std::string_view text, std::size_t length) {
  if (length == 0 || length > text.size()) return std::nullopt;
  const auto lead = static_cast<unsigned char>(text.front());
  std::uint32_t codePoint = length == 1 ? lead : lead & (0xFFU >> (length + 1));
  for (const char c : text.substr(1, length - 1)) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0U) != 0x80U) return std::nullopt;
    codePoint = codePoint << 6U | (byte & 0x3FU);
  }
  if (!isScalarOfLength(codePoint, length)) return std::nullopt;
  return codePoint;
}

}  // namespace

std::optional<std::size_t> utf16Length(std::string_view utf8) {
  std::size_t units = 0;
  while (!utf8.empty()) {
    const std::size_t length = sequenceLength(static_cast<unsigned char>(utf8.front()));
    const auto codePoint = decode(utf8, length);
    if (!codePoint) return std::nullopt;
    units += *codePoint >= kFirstSupplementary ? 2U : 1U;
    utf8.remove_prefix(length);
  }
  return units;
}

std::string_view firstCharacter(std::string_view utf8) {
  return utf8.substr(0, sequenceLength(static_cast<unsigned char>(utf8.front())));
}

}  // namespace kelm::base
