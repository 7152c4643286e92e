// Running a program and measuring it.
// SPDX-License-Identifier: Apache-2.0
#include "tests/bench/measure.hpp"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace kelm::bench {
namespace {

[[noreturn]] void fail(const char* what) {
  std::perror(what);
  std::exit(1);
}

int openFile(const char* path, int flags) {
  const int descriptor = open(path, flags | O_CLOEXEC);
  if (descriptor < 0) fail(path);
  return descriptor;
}

// Starts `command` with these descriptors and closes them here.
// Standard error goes nowhere: pstops reports every page there.
pid_t start(const Command& command, int input, int output) {
  static const int errorSink = openFile("/dev/null", O_WRONLY);
  const pid_t child = fork();
  if (child < 0) fail("fork");
  if (child == 0) {
    dup2(input, 0);
    dup2(output, 1);
    dup2(errorSink, 2);
    std::vector<char*> arguments;
    for (const std::string& text : command) arguments.push_back(const_cast<char*>(text.c_str()));
    arguments.push_back(nullptr);
    execv(arguments[0], arguments.data());
    _exit(127);
  }
  close(input);
  close(output);
  return child;
}

rusage finish(pid_t child) {
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child || status != 0) {
    std::fprintf(stderr, "a measured program failed (status %d)\n", status);
    std::exit(1);
  }
  return usage;
}

struct Pipe {
  Pipe() {
    int ends[2];
    if (pipe(ends) != 0) fail("pipe");
    for (const int end : ends) fcntl(end, F_SETFD, FD_CLOEXEC);
    out = ends[0];
    in = ends[1];
  }
  int out;
  int in;
};

double secondsSince(std::chrono::steady_clock::time_point begin) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(descriptor, text.data(), text.size());
    if (count <= 0) fail("write");
    text.remove_prefix(static_cast<std::size_t>(count));
  }
}

}  // namespace

double secondsIntoPipe(const Command& command, const std::string& inputFile) {
  const auto begin = std::chrono::steady_clock::now();
  const Pipe pipe;
  const pid_t writer = start(command, openFile(inputFile.c_str(), O_RDONLY), pipe.in);
  const pid_t reader = start({"/bin/cat"}, pipe.out, openFile("/dev/null", O_WRONLY));
  finish(writer);
  finish(reader);
  return secondsSince(begin);
}

double secondsToExit(const Command& command, const std::string& inputFile) {
  const auto begin = std::chrono::steady_clock::now();
  finish(start(command, openFile(inputFile.c_str(), O_RDONLY), openFile("/dev/null", O_WRONLY)));
  return secondsSince(begin);
}

Fed fed(const Command& command, std::string_view front, std::string_view block, int times) {
  const auto begin = std::chrono::steady_clock::now();
  const Pipe pipe;
  const pid_t child = start(command, pipe.out, openFile("/dev/null", O_WRONLY));
  writeAll(pipe.in, front);
  for (int i = 0; i < times; ++i) writeAll(pipe.in, block);
  close(pipe.in);
  const long peak = finish(child).ru_maxrss;
  return {secondsSince(begin), peak};
}

std::vector<double> mediansInTurns(const std::vector<std::function<double()>>& measurements,
                                   int count) {
  std::vector<std::vector<double>> results(measurements.size());
  for (int turn = 0; turn < count; ++turn) {
    for (std::size_t i = 0; i < measurements.size(); ++i) results[i].push_back(measurements[i]());
  }
  std::vector<double> medians;
  for (auto& times : results) {
    std::nth_element(times.begin(), times.begin() + count / 2, times.end());
    medians.push_back(times[static_cast<std::size_t>(count) / 2]);
  }
  return medians;
}

}  // namespace kelm::bench
