// SIGINT and SIGTERM as a request to stop in an orderly way.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <csignal>

namespace kelm::ctl {

// While it lives, the first SIGINT or SIGTERM is only noted; system calls that wait are
// interrupted. The second one ends the process.
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
