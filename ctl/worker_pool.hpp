// Work that waits for printers, in parallel processes.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <list>
#include <optional>
#include <string>

namespace kelm::ctl {

// Calls to name servers and printers block, and their answers are not trusted: each piece of work
// has a process of its own, so that a crash ends only that work. No other thread may run when work
// is started.
class WorkerPool {
 public:
  using Work = std::function<std::string()>;                            // in the new process
  using Done = std::function<void(std::optional<std::string> result)>;  // back in this one

  explicit WorkerPool(std::size_t most) : most_(most) {}
  ~WorkerPool();  // ends the work that is still under way
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  bool isFull() const { return workers_.size() >= most_; }
  bool isIdle() const { return workers_.empty(); }

  // `done` is called during a later `wait`, without a result when the process died or could not be
  // started. It may start further work.
  void start(const Work& work, Done done);

  // Waits for results for at most `limit` and calls `done` for each. Returns earlier after the
  // first results, when a signal arrives, or when `other` (a descriptor or -1) becomes readable.
  void wait(std::chrono::milliseconds limit, int other = -1);

 private:
  struct Worker {
    pid_t process = -1;
    int results = -1;
    std::string received;
    Done done;
  };

  static bool receive(Worker& worker);
  static void end(Worker& worker);

  std::size_t most_;
  std::list<Worker> workers_;
};

}  // namespace kelm::ctl
