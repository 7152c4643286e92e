// A part of a test in its own process.
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/child.hpp"

#include <sys/wait.h>
#include <unistd.h>

#include <array>

#include "base/byte_source.hpp"
#include "platform/pipe.hpp"
#include "tests/support/own_computer.hpp"

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

}  // namespace

std::string inChild(const std::function<std::string()>& body) {
  int ends[2];
  if (!platform::openPipe(ends)) return "no pipe";
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
  return inChild([&] {
    return enterOwnComputer() && hideDirectory("/run") ? body() : std::string("refused");
  });
}

}  // namespace kelm::tests
