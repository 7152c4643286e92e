// Owners of Core Foundation's objects.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <type_traits>

namespace kelm::platform::macos_platform {

struct ReleaseObject {
  void operator()(CFTypeRef object) const { CFRelease(object); }
};

// Owns what a function with "Create" or "Copy" in its name returned.
template <class Reference>
using Owned = std::unique_ptr<std::remove_pointer_t<Reference>, ReleaseObject>;

// The text as UTF-8; empty for no text, and for one of 4096 bytes or more.
inline std::string utf8Of(CFStringRef text) {
  constexpr std::size_t kRoom = 4096;
  std::array<char, kRoom> room{};
  if (text == nullptr || CFStringGetCString(text, room.data(), static_cast<CFIndex>(room.size()),
                                            kCFStringEncodingUTF8) == 0) {
    return {};
  }
  return room.data();
}

}  // namespace kelm::platform::macos_platform
