// The computer's name on macOS, as the system's configuration has it.
// SPDX-License-Identifier: Apache-2.0
#include <SystemConfiguration/SystemConfiguration.h>

#include <array>

#include "platform/macos/core_foundation.hpp"
#include "platform/macos/macos_platform.hpp"

namespace kelm::platform::macos_platform {
namespace {

constexpr std::size_t kMostBytes = 4096;

}  // namespace

std::string MacosComputerName::get() {
  const Owned<CFStringRef> name(SCDynamicStoreCopyComputerName(nullptr, nullptr));
  std::array<char, kMostBytes> text{};
  if (!name || CFStringGetCString(name.get(), text.data(), static_cast<CFIndex>(text.size()),
                                  kCFStringEncodingUTF8) == 0) {
    return {};
  }
  return text.data();
}

}  // namespace kelm::platform::macos_platform
