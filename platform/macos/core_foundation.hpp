// Core Foundation's objects in the hands of C++.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <memory>
#include <type_traits>

namespace kelm::platform::macos_platform {

struct ReleaseObject {
  void operator()(CFTypeRef object) const { CFRelease(object); }
};

// Owns what a function with "Create" or "Copy" in its name gave.
template <class Reference>
using Owned = std::unique_ptr<std::remove_pointer_t<Reference>, ReleaseObject>;

}  // namespace kelm::platform::macos_platform
