// A computer of a process's own, where the system can give it one (Linux: namespaces).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::tests {

// From here on, no other process sees what this one changes of the host name and the mounts. False
// when the system refuses or knows no such thing.
bool enterOwnComputer();

// Only on a computer of one's own.
bool nameOwnComputer(const std::string& name);

// Puts an empty directory in the place of `directory`. Only on a computer of one's own.
bool hideDirectory(const char* directory);

}  // namespace kelm::tests
