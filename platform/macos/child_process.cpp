// Child processes that end with their parent on macOS: a thread waits with kqueue(2).
// SPDX-License-Identifier: Apache-2.0
#include "platform/child_process.hpp"

#include <sys/event.h>
#include <unistd.h>

#include <csignal>

#include "platform/posix/bounded_call.hpp"

namespace kelm::platform {
namespace {

void killAtEndOf(int queue) {
  struct kevent end {};
  if (kevent(queue, nullptr, 0, &end, 1, nullptr) == 1) kill(getpid(), SIGKILL);
}

}  // namespace

void endWithParent(pid_t parent) {
  const int queue = kqueue();
  struct kevent wanted {};
  EV_SET(&wanted, static_cast<uintptr_t>(parent), EVFILT_PROC, EV_ADD, NOTE_EXIT, 0, nullptr);
  if (kevent(queue, &wanted, 1, nullptr, 0, nullptr) != 0) return;
  std::thread watch = posix_platform::threadWithoutSignals([queue] { killAtEndOf(queue); });
  if (watch.joinable()) watch.detach();
}

}  // namespace kelm::platform
