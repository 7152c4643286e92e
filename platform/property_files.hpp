// Property files: property lists (XML or binary) whose top level is a dictionary, looked up under
// the platform's file root. They are a library of their own, so that only programs that read such
// files link the parser.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelm::platform {

// The text of `key`, up to a zero byte; none when the file or the key is missing, the file is not a
// property list, or the value is not a text.
std::optional<std::string> propertyText(std::string_view absolutePath, const char* key);

// The texts in the array of `key`, in its order; entries that are not texts are left out. Empty
// when propertyText would have none.
std::vector<std::string> propertyTexts(std::string_view absolutePath, const char* key);

}  // namespace kelm::platform
