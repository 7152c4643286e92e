// The stages of one job.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

#include "base/byte_source.hpp"

namespace kelm::filter {

// Runs the job given by the arguments of a CUPS filter (filter(7)). Reads the file of the seventh
// argument, or standard input; writes the printer's stream to `output`. Long runs go to `direct`,
// unless it is null: it writes to the same place without a buffer. Returns the exit status: 0, or 1
// when the input cannot be opened or read to its end, or the argument count is wrong. Call it once
// per process: the job's record is never freed.
int runFilter(int argc, char* argv[], std::FILE* output, base::DescriptorSink* direct = nullptr);

}  // namespace kelm::filter
