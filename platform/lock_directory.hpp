// Where the lock files of all users' programs are.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::platform {

// Every user can write into it, but can neither remove nor rename the files of others. It is
// emptied when the computer starts.
extern const char* const kLockDirectory;

}  // namespace kelm::platform
