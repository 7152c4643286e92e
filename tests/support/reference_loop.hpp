// The simplest possible copy loop: it moves one character at a time and skips nothing. The loop of
// the product must write the same bytes.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

#include "job/print_job.hpp"

namespace kelm::tests {

struct ReferenceJob {
  std::string output;     // what the job's input becomes, byte for byte
  std::string asRead;     // diagnostic file 2: the input without zero bytes and unlogged lines
  std::string asWritten;  // diagnostic file 3: the output without zero bytes and unlogged lines
};

// The diagnostic files must be off. The loop also does what the stage of standard options asks for.
ReferenceJob referenceJob(std::string_view input, job::PrintJobData& job);

// Does what the stage of standard options would do. An option "settle-KEYWORD" replaces the
// sections of that keyword by its value, or leaves them to their writer if it is empty.
// "settle-copies" is the number of copies that the header asks for.
void settle(job::PrintJobData& job);

// The output alone.
std::string referenceCopy(std::string_view input, job::PrintJobData& job);

}  // namespace kelm::tests
