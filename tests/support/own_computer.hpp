// A computer of a process's own, if the system can provide one (on Linux: namespaces).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::tests {

// After this call, no other process sees what this one changes in the host name and the mounts.
// False when the system refuses or cannot do that.
bool enterOwnComputer();

// Only after enterOwnComputer.
bool nameOwnComputer(const std::string& name);

// Puts an empty directory in the place of `directory`. Only after enterOwnComputer.
bool hideDirectory(const char* directory);

}  // namespace kelm::tests
