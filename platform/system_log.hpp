// The system log, at error level: for messages that must not go to standard error.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::platform {

class SystemLog {
 public:
  virtual ~SystemLog() = default;

  // Writes `message` (UTF-8, one line, without its line feed) as one record. The message is lost
  // when there is no system log.
  virtual void error(const std::string& message) = 0;
};

}  // namespace kelm::platform
