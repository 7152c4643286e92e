// The real bodies of the operating system that this build is for; one folder provides them.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/platform.hpp"

namespace kelm::platform {

// Lives until the process ends. Nothing of the operating system is touched before its first use.
const Platform& systemBodies();

}  // namespace kelm::platform
