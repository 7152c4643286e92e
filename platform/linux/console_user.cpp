// The console user on Linux: the active session of seat0, as logind keeps it (sd-login(3)).
// SPDX-License-Identifier: Apache-2.0
#include <systemd/sd-login.h>

#include "platform/linux/linux_platform.hpp"
#include "platform/posix/login_name.hpp"

namespace kelm::platform::linux_platform {

std::string LinuxConsoleUser::name() {
  uid_t uid = 0;
  return sd_seat_get_active("seat0", nullptr, &uid) >= 0 ? posix_platform::loginName(uid)
                                                         : std::string();
}

}  // namespace kelm::platform::linux_platform
