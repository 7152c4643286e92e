// SIGINT and SIGTERM as requests for an orderly end.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <csignal>

namespace kelm::ctl {

// While it exists, the first SIGINT or SIGTERM is only noted and interrupts waiting system calls.
// The second one ends the process.
class Interruption {
 public:
  Interruption();
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  static bool isWanted();

 private:
  struct sigaction previousInterrupt_ {};
  struct sigaction previousTermination_ {};
};

}  // namespace kelm::ctl
