// The system log on Linux: syslog(3), under the program's own name.
// SPDX-License-Identifier: Apache-2.0
#include <syslog.h>

#include "platform/linux/linux_platform.hpp"

namespace kelm::platform::linux_platform {

void LinuxSystemLog::error(const std::string& message) { syslog(LOG_ERR, "%s", message.c_str()); }

}  // namespace kelm::platform::linux_platform
