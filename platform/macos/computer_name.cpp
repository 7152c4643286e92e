// The computer's name on macOS, as the system's configuration has it.
// SPDX-License-Identifier: Apache-2.0
#include <SystemConfiguration/SystemConfiguration.h>

#include "platform/macos/core_foundation.hpp"
#include "platform/macos/macos_platform.hpp"

namespace kelm::platform::macos_platform {

std::string MacosComputerName::get() {
  const Owned<CFStringRef> name(SCDynamicStoreCopyComputerName(nullptr, nullptr));
  return utf8Of(name.get());
}

}  // namespace kelm::platform::macos_platform
