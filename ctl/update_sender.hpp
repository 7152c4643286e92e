// An update job, sent to a queue and waited for.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "ctl/subcommand.hpp"
#include "ctl/update_lines.hpp"

namespace kelm::ctl {

// Where a queue prints to, or, when `problem` is not empty, what is wrong with it.
struct QueueState {
  std::string deviceUri;
  std::string problem;
};

// Asks the print server (CUPS_SERVER). A queue that is stopped is a problem: a job would wait in
// it.
QueueState queueState(const std::string& queue);

// Sends one update job with `lines` as its options and waits until the print system is through with
// it. The result is what went wrong and what to do about it; empty when the job completed. A job
// that takes longer than two minutes is cancelled.
std::string sendUpdate(const std::string& queue, const std::vector<UpdateLine>& lines,
                       const Console& console);

}  // namespace kelm::ctl
