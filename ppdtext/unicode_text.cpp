// Text in two encodings: UTF-16, as the patterns see it, and UTF-8, as files and records hold it.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/unicode_text.hpp"

#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <cstdint>
#include <limits>

namespace kelm::ppdtext {
namespace {

// The longest result that one character can grow to, in code units: the most that Unicode's case
// mappings give, and the bytes of UTF-8 for one unit.
constexpr std::size_t kGrowth = 3;
constexpr std::size_t kMaxIcuUnits = std::numeric_limits<std::int32_t>::max() / kGrowth;

constexpr UChar32 kReplacement = 0xFFFD;

bool continuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// Fills a text of at most `room` units by `convert`(units, room, length, status).
template <class String, class Convert>
std::optional<String> filled(std::size_t room, Convert convert) {
  String result(room, 0);
  std::int32_t length = 0;
  UErrorCode status = U_ZERO_ERROR;
  convert(result.data(), static_cast<std::int32_t>(room), &length, &status);
  if (U_FAILURE(status)) return std::nullopt;
  result.resize(static_cast<std::size_t>(length));
  return result;
}

std::int32_t unitsOf(std::u16string_view text) { return static_cast<std::int32_t>(text.size()); }

}  // namespace

std::optional<std::u16string> toUtf16(std::string_view utf8) {
  if (utf8.size() > kMaxIcuUnits) return std::nullopt;
  return filled<std::u16string>(utf8.size(), [&](auto* units, auto room, auto* length,
                                                 auto* status) {
    u_strFromUTF8(units, room, length, utf8.data(), static_cast<std::int32_t>(utf8.size()), status);
  });
}

std::string toUtf8(std::u16string_view text) {
  text = text.substr(0, kMaxIcuUnits);
  const auto convert = [&](auto* bytes, auto room, auto* length, auto* status) {
    u_strToUTF8WithSub(bytes, room, length, text.data(), unitsOf(text), kReplacement, nullptr,
                       status);
  };
  return filled<std::string>(text.size() * kGrowth, convert).value_or("");
}

std::string_view wholeCharacters(std::string_view utf8, std::size_t bytes) {
  if (utf8.size() <= bytes) return utf8;
  while (bytes > 0 && continuesCharacter(utf8[bytes])) --bytes;
  return utf8.substr(0, bytes);
}

std::u16string upperCase(std::u16string_view text) {
  text = text.substr(0, kMaxIcuUnits);
  const auto convert = [&](auto* units, auto room, auto* length, auto* status) {
    *length = u_strToUpper(units, room, text.data(), unitsOf(text), "", status);
  };
  return filled<std::u16string>(text.size() * kGrowth, convert).value_or(u"");
}

std::u16string foldedCase(std::u16string_view text) {
  text = text.substr(0, kMaxIcuUnits);
  const auto convert = [&](auto* units, auto room, auto* length, auto* status) {
    *length = u_strFoldCase(units, room, text.data(), unitsOf(text), U_FOLD_CASE_DEFAULT, status);
  };
  return filled<std::u16string>(text.size() * kGrowth, convert).value_or(u"");
}

}  // namespace kelm::ppdtext
