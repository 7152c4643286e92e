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

  // Tries once to take the lock of `queue`, a PrintServer's lockName(). The results:
  // 0: this process has the lock from now on.
  // Above 0: the process that has it, which may be this one.
  // -1: it is not known which process has it. It may be in another container.
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

  // To be called until the wait is over; tries to take the lock every 200 ms. The results:
  // kLocked: this process has the lock from now on.
  // kBegun: another process has it, and the wait for it begins.
  // kGoingOn: the wait goes on, or this process has the lock already, for other work. That has no
  // limit, and is waited for without kBegun.
  // kTooLong: another process has had it since kBegun, for at least `limit`.
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
