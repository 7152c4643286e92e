// What kelmctl's options --json print.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace kelm::ctl {

using Json = nlohmann::ordered_json;

enum class JsonLayout { kOneLine, kIndented };

// `value` as JSON, without a line feed at its end. No text in it can fail or control a terminal:
// bytes that are not UTF-8 become U+FFFD, and control characters are escaped.
std::string textOf(const Json& value, JsonLayout layout);

}  // namespace kelm::ctl
