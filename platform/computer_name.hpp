// The name of this computer.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::platform {

class ComputerName {
 public:
  virtual ~ComputerName() = default;

  // UTF-8; empty when the computer has no name or it cannot be determined.
  virtual std::string get() = 0;
};

}  // namespace kelm::platform
