// kelmctl with one subcommand, explain, for make demo: it needs few libraries and builds quickly.
// SPDX-License-Identifier: Apache-2.0
#include <unistd.h>

#include <iostream>

#include "ctl/command_line.hpp"
#include "platform/standard_streams.hpp"

int main(int argc, char* argv[]) {
  kelm::platform::openStandardStreams();
  constexpr kelm::ctl::Subcommand kExplain[] = {
      {"explain", "Show what a job tells the printer, and why", kelm::ctl::declareExplain}};
  return kelm::ctl::runCommandLine(
      argc, argv, {std::cout, std::cerr, isatty(STDERR_FILENO) == 1, isatty(STDOUT_FILENO) == 1},
      kExplain);
}
