// The user logged in at the computer's own screen.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::platform {

class ConsoleUser {
 public:
  virtual ~ConsoleUser() = default;

  // The login name, UTF-8, of the user of the active session on the computer's own screen; empty
  // when there is none or it cannot be determined. On macOS it is the name that the system gives,
  // which may be "loginwindow" while nobody is logged in.
  virtual std::string name() = 0;
};

}  // namespace kelm::platform
