// A file as text.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

namespace kelm::ppdtext {

// The whole file; none without a path, and when the file cannot be read to its end, is longer than
// half a gibibyte, or is not valid UTF-8.
std::optional<std::u16string> readTextFile(const char* path);

}  // namespace kelm::ppdtext
