// The user who sits at the computer, as the printer is told.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>

namespace kelm::job {

// The console user's name as hex text; empty when nobody is there, or the name and its terminator
// need more than `bufferSize` bytes.
std::string consoleUserHex(std::size_t bufferSize);

}  // namespace kelm::job
