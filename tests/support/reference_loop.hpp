// The copy loop as plainly as it can be written: one character at a time, nothing skipped. The
// product's loop must write the same bytes.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

#include "job/print_job.hpp"

namespace kelm::tests {

// What the job's input becomes, byte for byte.
std::string referenceCopy(std::string_view input, job::PrintJobData& job);

}  // namespace kelm::tests
