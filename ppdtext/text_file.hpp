// A file as text.
#pragma once

#include <optional>
#include <string>

namespace kelm::ppdtext {

// The whole file; none when it cannot be read, is longer than half a gibibyte, or is not valid
// UTF-8.
std::optional<std::u16string> readTextFile(const char* path);

}  // namespace kelm::ppdtext
