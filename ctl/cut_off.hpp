// The end of a connection that a server keeps busy for too long.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/http.h>

#include <chrono>
#include <csignal>

namespace kelm::ctl {

// While it exists, the connection is shut down once the time is up, whatever libcups is waiting for
// or reading: libcups itself ends only when nothing comes for a while. Once an Interruption is
// wanted, the time is up after `limitAtTheEnd`, which is seen within 11 seconds. Uses SIGALRM,
// so there can be one at a time.
class CutOff {
 public:
  CutOff(http_t* connection, std::chrono::seconds limit, std::chrono::seconds limitAtTheEnd);
  ~CutOff();
  CutOff(const CutOff&) = delete;
  CutOff& operator=(const CutOff&) = delete;

  // After suspend() and resume(), the time starts again.
  void suspend();
  void resume();

  // Whether the time was up.
  static bool isDone();

 private:
  struct sigaction previous_ {};
};

}  // namespace kelm::ctl
