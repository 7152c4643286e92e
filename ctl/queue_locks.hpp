// Locks that keep two processes from changing the stored facts of one queue at a time.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <set>
#include <string>

namespace kelm::ctl {

// Record locks in one file that all users of the machine share; the kernel releases them when the
// process ends. They do not keep another machine from changing the same queue.
class QueueLocks {
 public:
  explicit QueueLocks(const std::string& path = "/run/lock/kelmctl.lock");
  ~QueueLocks();
  QueueLocks(const QueueLocks&) = delete;
  QueueLocks& operator=(const QueueLocks&) = delete;

  // Why there can be no locks, and what to do; empty when there can.
  const std::string& problem() const { return problem_; }

  // 0: this process has the lock from now on; otherwise the process that has it, which may be this
  // one, -1 when it is not known. `queue` is a PrintServer's lockName().
  pid_t tryLock(const std::string& queue);
  void unlock(const std::string& queue);

 private:
  int file_;
  std::string problem_;
  std::set<off_t> held_;
};

}  // namespace kelm::ctl
