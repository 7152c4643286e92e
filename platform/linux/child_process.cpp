// The end of the parent process on Linux: the signal that prctl(2) asks for.
// SPDX-License-Identifier: Apache-2.0
#include "platform/child_process.hpp"

#include <sys/prctl.h>

#include <csignal>

namespace kelm::platform {

void endWithParent(pid_t /*parent*/) { prctl(PR_SET_PDEATHSIG, SIGKILL); }

}  // namespace kelm::platform
