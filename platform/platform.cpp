// The operating system, as one set of small interfaces.
// SPDX-License-Identifier: Apache-2.0
#include "platform/platform.hpp"

#include "platform/system_platform.hpp"

namespace kelm::platform {
namespace {

const Platform*& current() {
  static const Platform* set = &systemPlatform();
  return set;
}

}  // namespace

const Platform& platform() { return *current(); }

ScopedPlatform::ScopedPlatform(const Platform& replacement) : previous_(current()) {
  current() = &replacement;
}

ScopedPlatform::~ScopedPlatform() { current() = previous_; }

}  // namespace kelm::platform
