// Child processes that end with their parent on Linux: prctl(2) asks for the signal.
// SPDX-License-Identifier: Apache-2.0
#include "platform/child_process.hpp"

#include <sys/prctl.h>

#include <csignal>

namespace kelm::platform {

void endWithParent(pid_t /*parent*/) { prctl(PR_SET_PDEATHSIG, SIGKILL); }

}  // namespace kelm::platform
