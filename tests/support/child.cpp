// A piece of a test in a process of its own.
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/child.hpp"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>

#include "base/byte_source.hpp"

namespace kelm::tests {
namespace {

constexpr unsigned kMostSeconds = 60;

[[noreturn]] void run(const std::function<std::string()>& body, int answer) {
  alarm(kMostSeconds);
  base::writeAll(answer, body());
  _exit(0);
}

std::string readToEnd(int descriptor) {
  base::DescriptorSource source(descriptor);
  std::array<char, 4096> room{};
  std::string text;
  while (const std::size_t count = source.read(room)) text.append(room.data(), count);
  return text;
}

bool enterOwnComputer() {
  const int flags = CLONE_NEWUTS | CLONE_NEWNS;
  if (unshare(geteuid() == 0 ? flags : flags | CLONE_NEWUSER) != 0) return false;
  if (mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return false;
  return mount("none", "/run", "tmpfs", 0, nullptr) == 0;
}

}  // namespace

std::string inChild(const std::function<std::string()>& body) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return "no pipe";
  const pid_t child = fork();
  if (child == 0) run(body, ends[1]);
  close(ends[1]);
  std::string text = readToEnd(ends[0]);
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  return status == 0 ? text : "died: " + std::to_string(status);
}

std::string onOwnComputer(const std::function<std::string()>& body) {
  return inChild([&] { return enterOwnComputer() ? body() : std::string("refused"); });
}

}  // namespace kelm::tests
