// Where the user of this process keeps files.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::platform {

class HomeFolder {
 public:
  virtual ~HomeFolder() = default;

  // An absolute path without a slash at its end; empty where the user has none.
  virtual std::string path() = 0;
};

}  // namespace kelm::platform
