// The console user on macOS: the owner of the console device, which is root while no user is logged
// in.
// SPDX-License-Identifier: Apache-2.0
#include <sys/stat.h>

#include "platform/macos/macos_platform.hpp"
#include "platform/posix/login_name.hpp"

namespace kelm::platform::macos_platform {
namespace {

constexpr uid_t kRoot = 0;

}  // namespace

std::string MacosConsoleUser::name() {
  const std::string device = platform().fileRoot->locate("/dev/console");
  struct stat console {};
  if (stat(device.c_str(), &console) != 0 || console.st_uid == kRoot) return {};
  return posix_platform::loginName(console.st_uid);
}

}  // namespace kelm::platform::macos_platform
