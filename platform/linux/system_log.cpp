// The system log on Linux: syslog(3), under the program's own name.
// SPDX-License-Identifier: Apache-2.0
#include <syslog.h>

#include "platform/linux/linux_bodies.hpp"

namespace kelm::platform::linux_bodies {

void LinuxSystemLog::error(const std::string& message) { syslog(LOG_ERR, "%s", message.c_str()); }

}  // namespace kelm::platform::linux_bodies
