// The platform of the operating system that this build is for; one directory implements it.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/platform.hpp"

namespace kelm::platform {

// Lives until the process ends. Calls nothing of the operating system before its first use.
const Platform& systemPlatform();

}  // namespace kelm::platform
