// Base64 values of the PPD, as text.
// SPDX-License-Identifier: Apache-2.0
#include "ppdsettings/base64_text.hpp"

#include <cups/http.h>

#include "base/hex_text.hpp"
#include "base/utf.hpp"

namespace kelm::ppdsettings {

std::optional<std::string> decodedBase64(const char* text) {
  char buffer[base::kTextBufferSize] = "";
  int size = sizeof buffer;
  if (httpDecode64_2(buffer, &size, text) == nullptr) return std::nullopt;
  return validUtf8(buffer);
}

std::optional<std::string> validUtf8(std::string text) {
  if (!base::utf16Length(text)) return std::nullopt;
  return text;
}

}  // namespace kelm::ppdsettings
