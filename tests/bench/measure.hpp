// Running a program and measuring it.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kelm::bench {

using Command = std::vector<std::string>;

// Seconds from start to exit with `inputFile` as standard input and the output in a pipe that a
// reader empties ("cat >/dev/null"); the reader's end counts.
double secondsIntoPipe(const Command& command, const std::string& inputFile);

// Seconds from start to exit with `inputFile` as standard input, the output thrown away.
double secondsToExit(const Command& command, const std::string& inputFile);

// The largest resident size in KiB of `command` while it is given `block` `times` times.
long peakKilobytes(const Command& command, std::string_view block, int times);

// The median of `count` calls of each measurement, the measurements taking turns.
std::vector<double> mediansInTurns(const std::vector<std::function<double()>>& measurements,
                                   int count);

}  // namespace kelm::bench
