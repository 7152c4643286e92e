// The program's name on Linux, as the C library keeps it.
// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/program_name.hpp"

#include <cerrno>

namespace kelm::platform {

const char* programName() { return program_invocation_short_name; }

}  // namespace kelm::platform
