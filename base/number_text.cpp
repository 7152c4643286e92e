// Numbers in job texts: read and written as in the C locale, whatever the job's language.
// SPDX-License-Identifier: Apache-2.0
#include "base/number_text.hpp"

#if __has_include(<xlocale.h>)
#include <xlocale.h>
#endif

#include <clocale>
#include <cstdlib>

namespace kelm::base {

std::int32_t leadingInteger(const char* text) {
  return cutTo32Bits(std::strtol(text, nullptr, 10));
}

double leadingReal(const char* text) {
  static const locale_t kCLocale = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(text, nullptr, kCLocale);
}

}  // namespace kelm::base
