// The stages of one job.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

namespace kelm::filter {

// Runs the job that the arguments of a CUPS filter describe (filter(7)); the input is the file of
// the seventh argument or standard input, the printer's stream goes to `output`. The result is the
// exit status: 0, or 1 when the input cannot be opened or the argument count is wrong.
// Once per process: the job's record is never freed.
int runFilter(int argc, char* argv[], std::FILE* output);

}  // namespace kelm::filter
