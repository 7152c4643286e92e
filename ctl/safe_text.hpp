// Text of unknown origin, made safe for a terminal.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace kelm::ctl {

// `text` with every control character (C0, delete, C1, line separators, bidirectional controls)
// written as \u and four hexadecimal digits, every byte that is not UTF-8 as \x and two, and every
// backslash doubled: the name of a printer, queue or file cannot control a terminal.
std::string safeText(std::string_view text);

// `text` as one word of a shell: in apostrophes unless all its characters are harmless. Without a
// backslash of its own, because messages double each.
std::string shellWord(std::string_view text);

// `json`, a JSON text, with the control characters that JSON allows in its strings (all but C0)
// written as \u and four hexadecimal digits: it says the same, and cannot control a terminal
// either.
std::string safeJson(std::string_view json);

}  // namespace kelm::ctl
