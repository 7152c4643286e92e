// Base64 values of the PPD, as text.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

namespace kelm::ppdsettings {

// `text`, decoded as libcups does it (httpDecode64_2: other characters are skipped), at most 4095
// bytes and up to the first zero byte; nothing when the result is not valid UTF-8.
std::optional<std::string> decodedBase64(const char* text);

// `text` itself; nothing when it is not valid UTF-8.
std::optional<std::string> validUtf8(std::string text);

}  // namespace kelm::ppdsettings
