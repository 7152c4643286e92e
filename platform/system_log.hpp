// The system log, at error level: for what no standard error of this process would carry.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::platform {

class SystemLog {
 public:
  virtual ~SystemLog() = default;

  // Writes `message` (UTF-8, one line, no line feed at its end) as one record. Never fails visibly:
  // where there is no system log, the message is lost.
  virtual void error(const std::string& message) = 0;
};

}  // namespace kelm::platform
