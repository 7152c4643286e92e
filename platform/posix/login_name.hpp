// Names in the user database.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <string>

namespace kelm::platform::posix_platform {

// The login name of `user`; empty when it is not in the user database.
std::string loginName(uid_t user);

}  // namespace kelm::platform::posix_platform
