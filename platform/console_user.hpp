// The user who sits at this computer.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::platform {

class ConsoleUser {
 public:
  virtual ~ConsoleUser() = default;

  // The login name of the user whose session is in front on the computer's own screen, UTF-8; empty
  // when there is none or the system cannot tell.
  virtual std::string name() = 0;
};

}  // namespace kelm::platform
