// Work that waits for printers, in parallel processes.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/worker_pool.hpp"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <utility>
#include <vector>

#include "base/byte_source.hpp"
#include "platform/child_process.hpp"
#include "platform/pipe.hpp"

namespace kelm::ctl {
namespace {

// Ctrl-C at the terminal reaches all processes, but the parent process decides which of them end.
[[noreturn]] void runAndEnd(const WorkerPool::Work& work, int results, pid_t parent) {
  platform::endWithParent(parent);
  std::signal(SIGINT, SIG_IGN);
  std::signal(SIGTERM, SIG_DFL);
  std::signal(SIGPIPE, SIG_DFL);
  if (getppid() == parent) base::writeAll(results, work());
  _exit(0);
}

}  // namespace

WorkerPool::~WorkerPool() {
  for (Worker& worker : workers_) {
    if (worker.process > 0) kill(worker.process, SIGKILL);
    end(worker);
  }
}

void WorkerPool::start(const Work& work, Done done) {
  workers_.push_back({.process = -1, .results = -1, .received = {}, .done = std::move(done)});
  Worker& worker = workers_.back();
  int ends[2];
  if (!platform::openPipe(ends)) return;
  const pid_t parent = getpid();
  worker.process = fork();
  if (worker.process == 0) {
    close(ends[0]);
    runAndEnd(work, ends[1], parent);
  }
  close(ends[1]);
  worker.results = ends[0];
}

// True at the end of the worker's results.
bool WorkerPool::receive(Worker& worker) {
  if (worker.process < 0) return true;
  char bytes[4096];
  const ssize_t count = read(worker.results, bytes, sizeof bytes);
  if (count < 0) return errno != EINTR;
  worker.received.append(bytes, static_cast<std::size_t>(count));
  return count == 0;
}

void WorkerPool::end(Worker& worker) {
  if (worker.results >= 0) close(worker.results);
  if (worker.process > 0) waitpid(worker.process, nullptr, 0);
}

void WorkerPool::wait(std::chrono::milliseconds limit, int other) {
  std::vector<pollfd> sources;
  for (const Worker& worker : workers_) {
    // A worker without a process has already ended.
    if (worker.process < 0) limit = std::chrono::milliseconds(0);
    sources.push_back({worker.results, POLLIN, 0});
  }
  sources.push_back({other, POLLIN, 0});
  if (poll(sources.data(), static_cast<nfds_t>(sources.size()), static_cast<int>(limit.count())) <
      0)
    return;
  auto source = sources.begin();
  for (auto worker = workers_.begin(); worker != workers_.end() && source + 1 != sources.end();) {
    const auto each = worker++;
    const bool ready = (source++)->revents != 0 || each->process < 0;
    if (!ready || !receive(*each)) continue;
    end(*each);
    const Worker finished = std::move(*each);
    workers_.erase(each);
    finished.done(finished.received.empty() ? std::nullopt : std::optional(finished.received));
  }
}

}  // namespace kelm::ctl
