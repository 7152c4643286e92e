// Locks that keep two processes from changing the stored facts of one queue at a time.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <string>

namespace kelm::ctl {

// Record locks in one file that all users of the machine share; the kernel releases them when the
// process ends. Another machine that changes the same queue is not noticed.
class QueueLocks {
 public:
  QueueLocks();
  ~QueueLocks();
  QueueLocks(const QueueLocks&) = delete;
  QueueLocks& operator=(const QueueLocks&) = delete;

  // Why there can be no locks, and what to do; empty when there can.
  const std::string& problem() const { return problem_; }

  // 0: this process has the lock now; otherwise the process that has it, -1 when it is not known.
  pid_t tryLock(const std::string& server, const std::string& queue);
  void unlock(const std::string& server, const std::string& queue);

 private:
  int file_;
  std::string problem_;
};

}  // namespace kelm::ctl
