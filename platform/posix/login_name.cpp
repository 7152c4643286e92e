// Names in the user database: getpwuid_r(3).
// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/login_name.hpp"

#include <pwd.h>

#include <cerrno>
#include <vector>

namespace kelm::platform::posix_platform {
namespace {

constexpr std::size_t kMostRecordBytes = std::size_t{1} << 20U;

}  // namespace

std::string loginName(uid_t user) {
  for (std::size_t size = 1024; size <= kMostRecordBytes; size *= 2) {
    std::vector<char> strings(size);
    passwd record{};
    passwd* found = nullptr;
    const int error = getpwuid_r(user, &record, strings.data(), strings.size(), &found);
    if (error == ERANGE) continue;
    return found != nullptr ? found->pw_name : "";
  }
  return {};
}

}  // namespace kelm::platform::posix_platform
