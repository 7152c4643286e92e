// Locks that keep two processes from changing the stored facts of one queue at a time.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <map>
#include <string>

namespace kelm::ctl {

// Record locks in one file that all users of the machine share; the kernel releases them when the
// process ends. They do not keep another machine from changing the same queue.
class QueueLocks {
 public:
  QueueLocks();
  ~QueueLocks();
  QueueLocks(const QueueLocks&) = delete;
  QueueLocks& operator=(const QueueLocks&) = delete;

  // Why there can be no locks, and what to do; empty when there can.
  const std::string& problem() const { return problem_; }

  // 0: this process has the lock now; otherwise the process that has it, -1 when it is not known.
  // `server` is a PrintServer's lockName(). Each success needs its own `unlock`: the print servers
  // of this computer share their locks.
  pid_t tryLock(const std::string& server, const std::string& queue);
  void unlock(const std::string& server, const std::string& queue);

 private:
  int file_;
  std::string problem_;
  std::map<off_t, int> held_;  // how often each lock was taken
};

}  // namespace kelm::ctl
