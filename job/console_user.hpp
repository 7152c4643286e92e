// The user who is logged in at the computer, in the form that the printer gets.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>

namespace kelm::job {

// The console user's name as hex text; empty when there is none, or when the name and its
// terminator need more than `bufferSize` bytes.
std::string consoleUserHex(std::size_t bufferSize);

}  // namespace kelm::job
