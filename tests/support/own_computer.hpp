// A process's own host name and mounts, if the system can provide them (on Linux: namespaces).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::tests {

// After this call, other processes do not see changes of the host name and the mounts by this one.
// False if the system refuses or cannot do that.
bool enterOwnComputer();

// Only after enterOwnComputer.
bool nameOwnComputer(const std::string& name);

// Puts an empty directory in the place of `directory`. Only after enterOwnComputer.
bool hideDirectory(const char* directory);

// After this call, the next child process sees no process but itself and its own children. False if
// the system refuses or cannot do that.
bool hideProcessesFromNextChild();

}  // namespace kelm::tests
