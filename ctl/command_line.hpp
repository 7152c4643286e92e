// The command line of kelmctl.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ctl/subcommand.hpp"

namespace kelm::ctl {

// Reads the arguments (argv[0] is the program's name), runs the subcommand that they name and
// returns the exit status (exit_status.hpp): 0 also for --help and --version, 1 also when the
// result cannot be written.
int runCommandLine(int argc, const char* const argv[], const Console& console);

}  // namespace kelm::ctl
