// The console user on Linux: the active session of seat0, as logind keeps it (sd-login(3)).
// SPDX-License-Identifier: Apache-2.0
#include <pwd.h>
#include <systemd/sd-login.h>
#include <unistd.h>

#include <vector>

#include "platform/linux/linux_platform.hpp"

namespace kelm::platform::linux_platform {
namespace {

constexpr std::size_t kMostRecordBytes = std::size_t{1} << 20U;

// The login name of `uid`; empty when it is not in the user database.
std::string loginName(uid_t uid) {
  for (std::size_t size = 1024; size <= kMostRecordBytes; size *= 2) {
    std::vector<char> strings(size);
    passwd record{};
    passwd* found = nullptr;
    const int error = getpwuid_r(uid, &record, strings.data(), strings.size(), &found);
    if (error == ERANGE) continue;
    return found != nullptr ? found->pw_name : "";
  }
  return {};
}

}  // namespace

std::string LinuxConsoleUser::name() {
  uid_t uid = 0;
  return sd_seat_get_active("seat0", nullptr, &uid) >= 0 ? loginName(uid) : std::string();
}

}  // namespace kelm::platform::linux_platform
