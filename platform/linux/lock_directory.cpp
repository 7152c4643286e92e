// The directory for lock files on Linux.
// SPDX-License-Identifier: Apache-2.0
#include "platform/lock_directory.hpp"

namespace kelm::platform {

const char* const kLockDirectory = "/run/lock";

}  // namespace kelm::platform
