// The home directory of the user who runs this process.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::platform {

class HomeDirectory {
 public:
  virtual ~HomeDirectory() = default;

  // An absolute path without a trailing slash; empty when the user has none.
  virtual std::string path() = 0;
};

}  // namespace kelm::platform
