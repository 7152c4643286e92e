// Processes that help the one that started them.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

namespace kelm::platform {

// Called by a child process: it is killed once its parent has ended. A parent that ended before is
// not noticed; compare getppid() afterwards.
void endWithParent(pid_t parent);

}  // namespace kelm::platform
