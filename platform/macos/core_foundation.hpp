// Owners of Core Foundation's objects.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <memory>
#include <type_traits>

namespace kelm::platform::macos_platform {

struct ReleaseObject {
  void operator()(CFTypeRef object) const { CFRelease(object); }
};

// Owns what a function with "Create" or "Copy" in its name returned.
template <class Reference>
using Owned = std::unique_ptr<std::remove_pointer_t<Reference>, ReleaseObject>;

}  // namespace kelm::platform::macos_platform
