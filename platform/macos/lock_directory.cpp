// The directory for lock files on macOS: in /var/run, only root may make files.
// SPDX-License-Identifier: Apache-2.0
#include "platform/lock_directory.hpp"

namespace kelm::platform {

const char* const kLockDirectory = "/private/tmp";

}  // namespace kelm::platform
