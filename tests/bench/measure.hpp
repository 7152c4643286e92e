// Running a program and measuring it.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kelm::bench {

using Command = std::vector<std::string>;

// Seconds from the start of the program, with `inputFile` as standard input and its output in a
// pipe, to the end of the reader of that pipe ("cat >/dev/null").
double secondsIntoPipe(const Command& command, const std::string& inputFile);

// Seconds from start to exit with `inputFile` as standard input; the output is discarded.
double secondsToExit(const Command& command, const std::string& inputFile);

struct Fed {
  double seconds;      // from start to exit
  long peakKilobytes;  // the largest resident size, in KiB
};

// Runs `command` with a pipe as its standard input, which gets `front` and then `block` `times`
// times. The output is discarded.
Fed fed(const Command& command, std::string_view front, std::string_view block, int times);

// The median of `count` calls of each measurement. The measurements take turns.
std::vector<double> mediansInTurns(const std::vector<std::function<double()>>& measurements,
                                   int count);

}  // namespace kelm::bench
