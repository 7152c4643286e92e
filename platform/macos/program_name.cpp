// The program's name on macOS, as the C library keeps it.
// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/program_name.hpp"

#include <cstdlib>

namespace kelm::platform {

const char* programName() { return getprogname(); }

}  // namespace kelm::platform
