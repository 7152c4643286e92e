// The console user on macOS, as the system's configuration has it.
// SPDX-License-Identifier: Apache-2.0
#include <SystemConfiguration/SystemConfiguration.h>

#include "platform/macos/core_foundation.hpp"
#include "platform/macos/macos_platform.hpp"

namespace kelm::platform::macos_platform {

// While nobody is logged in, the system has no name, or that of its login window.
std::string MacosConsoleUser::name() {
  const Owned<SCDynamicStoreRef> store(
      SCDynamicStoreCreate(nullptr, CFSTR("GetConsoleUser"), nullptr, nullptr));
  if (!store) return {};
  const Owned<CFStringRef> user(SCDynamicStoreCopyConsoleUser(store.get(), nullptr, nullptr));
  return utf8Of(user.get());
}

}  // namespace kelm::platform::macos_platform
