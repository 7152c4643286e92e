// The command line of kelmctl.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ctl/subcommand.hpp"

namespace kelm::ctl {

// Reads the arguments (argv[0] is the program's name), runs the subcommand that they name and
// returns the exit status: 0 done (also for --help and --version), 1 failed (also when the result
// cannot be written), 2 usage.
int runCommandLine(int argc, const char* const argv[], const Console& console);

}  // namespace kelm::ctl
