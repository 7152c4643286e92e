// Property files: property lists (XML or binary) whose top level is a dictionary. They are looked
// for under the platform's file root. This part of the seam is a library of its own, so that only
// programs that read such files carry their parser.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelm::platform {

// The text under `key`; none when the file or the key is missing, the file is no property list, or
// the value is no text.
std::optional<std::string> propertyText(std::string_view absolutePath, const char* key);

// The texts of the array under `key`, in its order; entries that are no texts are left out. Empty
// in the cases in which propertyText has none.
std::vector<std::string> propertyTexts(std::string_view absolutePath, const char* key);

}  // namespace kelm::platform
