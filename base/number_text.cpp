// Numbers in job texts: read and written as in the C locale, whatever the job's language.
// SPDX-License-Identifier: Apache-2.0
#include "base/number_text.hpp"

#if __has_include(<xlocale.h>)
#include <xlocale.h>
#endif

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <string>

namespace kelm::base {
namespace {

double real(const char* text, char** end) {
  static const locale_t kCLocale = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(text, end, kCLocale);
}

}  // namespace

std::int32_t leadingInteger(const char* text) {
  return cutTo32Bits(std::strtol(text, nullptr, 10));
}

double leadingReal(const char* text) { return real(text, nullptr); }

// strtod reads more than these characters: white space, hexadecimal digits, "inf" and "nan". Not
// all C++ libraries have std::from_chars for double.
std::optional<double> wholeReal(std::string_view text) {
  if (text.empty() || text.front() == '+') return std::nullopt;
  if (text.find_first_not_of("0123456789.-+eE") != std::string_view::npos) return std::nullopt;
  const std::string copy(text);
  char* end = nullptr;
  const double number = real(copy.c_str(), &end);
  if (end != copy.c_str() + copy.size() || !std::isfinite(number)) return std::nullopt;
  return number;
}

}  // namespace kelm::base
