// Text of unknown origin, made safe for a terminal.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace kelm::ctl {

// `utf8` (valid) with every control character (C0, delete, C1) written as \u and four hex digits:
// what a printer is named must not steer a terminal. A backslash is doubled.
std::string safeText(std::string_view utf8);

}  // namespace kelm::ctl
