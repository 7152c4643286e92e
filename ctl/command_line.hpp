// The command line of kelmctl.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <span>

#include "ctl/commands.hpp"

namespace kelm::ctl {

// What a command line asks for: an action, or, without one, the exit status after help, the version
// or a usage error has been written.
struct CommandLine {
  Action action;
  int status;
};

// Reads the arguments (argv[0] is the program's name) and runs nothing.
CommandLine readCommandLine(int argc, const char* const argv[], const Console& console,
                            std::span<const Subcommand> subcommands = kSubcommands);

// Reads the arguments, runs the subcommand that they name and returns the exit status
// (exit_status.hpp): 0 also for --help and --version, 1 also when the result cannot be written.
int runCommandLine(int argc, const char* const argv[], const Console& console,
                   std::span<const Subcommand> subcommands = kSubcommands);

}  // namespace kelm::ctl
