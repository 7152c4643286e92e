// What a program does when an allocation fails.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace kelm::platform {

// A program that links kelm_platform_memory ends with exit status 1 and this text on standard error
// when an allocation fails, wherever the allocation was. Each such program defines its own text,
// with a line feed at its end.
extern const std::string_view kOutOfMemory;

}  // namespace kelm::platform
