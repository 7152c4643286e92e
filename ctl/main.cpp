// kelmctl: the administrator's command.
// SPDX-License-Identifier: Apache-2.0
#include <unistd.h>

#include <iostream>

#include "ctl/command_line.hpp"
#include "platform/out_of_memory.hpp"
#include "platform/standard_streams.hpp"

const std::string_view kelm::platform::kOutOfMemory =
    "kelmctl: out of memory; only what was reported is finished\n";

int main(int argc, char* argv[]) {
  kelm::platform::openStandardStreams();
  return kelm::ctl::runCommandLine(
      argc, argv, {std::cout, std::cerr, isatty(STDERR_FILENO) == 1, isatty(STDOUT_FILENO) == 1});
}
