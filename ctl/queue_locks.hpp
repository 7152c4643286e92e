// Locks that keep two processes from changing the stored facts of one queue at a time.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <chrono>
#include <set>
#include <string>

#include "platform/lock_directory.hpp"

namespace kelm::ctl {

// Record locks in one file that all users of the machine share; the kernel releases them when the
// process ends. They do not keep another machine from changing the same queue.
class QueueLocks {
 public:
  explicit QueueLocks(const std::string& path = std::string(platform::kLockDirectory) +
                                                "/kelmctl.lock");
  ~QueueLocks();
  QueueLocks(const QueueLocks&) = delete;
  QueueLocks& operator=(const QueueLocks&) = delete;

  // Why there can be no locks, and what to do; empty when there can.
  const std::string& problem() const { return problem_; }

  // 0: this process has the lock from now on; otherwise the process that has it, which may be this
  // one, -1 when it is not known: it may be in another container. `queue` is a PrintServer's
  // lockName().
  pid_t tryLock(const std::string& queue);
  void unlock(const std::string& queue);

 private:
  int file_;
  std::string problem_;
  std::set<off_t> held_;
};

// "process 4711", or "another process" when it is not known.
std::string nameOfHolder(pid_t holder);

// The wait of a program with other work for one queue's lock.
class LockWait {
 public:
  using Clock = std::chrono::steady_clock;
  enum class State { kLocked, kBegun, kGoingOn, kTooLong };

  // Tries to take the lock, a few times in a second. kTooLong: another process has had it since
  // kBegun, for at least `limit`. This process itself is waited for without kBegun and a limit.
  State tryLock(QueueLocks& locks, const std::string& queue, std::chrono::seconds limit,
                Clock::time_point now = Clock::now());

  // The process that was found last.
  pid_t holder() const { return holder_; }

 private:
  pid_t holder_ = 0;
  Clock::time_point end_;
  Clock::time_point nextTry_;
};

}  // namespace kelm::ctl
