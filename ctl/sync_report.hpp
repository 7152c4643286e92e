// What a sync did, as text or as JSON.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <vector>

#include "ctl/subcommand.hpp"
#include "ctl/sync.hpp"

namespace kelm::ctl {

// 0 when all queues are done, 3 when some are or when facts are missing, 1 when none is.
int exitStatusOf(const std::vector<SyncResult>& results);

// The changes of one queue, in full.
void writeOne(const SyncResult& result, bool dryRun, const Console& console);

// One line for each queue and a summary.
void writeMany(const std::vector<SyncResult>& results, bool dryRun, std::chrono::milliseconds time,
               const Console& console);

// Only the queues that are not done, on standard error.
void writeProblems(const std::vector<SyncResult>& results, const Console& console);

// One JSON object for each queue, each on a line of its own.
void writeJson(const std::vector<SyncResult>& results, bool dryRun, const Console& console);

}  // namespace kelm::ctl
