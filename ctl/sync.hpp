// Asks the printers of many queues and stores the answers in the queues' PPDs.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "ctl/stored_settings.hpp"
#include "ctl/subcommand.hpp"
#include "ctl/update_lines.hpp"

namespace kelm::ctl {

struct SyncRequest {
  std::vector<std::string> servers;  // as PrintServer takes them
  std::vector<std::string> queues;   // on each server; none: all that print with kelmfilter
  std::optional<std::string> address;
  std::optional<std::string> community;
  bool dryRun = false;
  std::chrono::seconds wait{120};  // for another process or another job of the queue
  unsigned jobs = 500;             // printers that are asked at a time
};

enum class SyncStatus { kDone, kUnchanged, kPartly, kFailed, kInterrupted };

struct SyncResult {
  std::string server;
  std::string queue;  // empty: the server itself failed
  SyncStatus status = SyncStatus::kInterrupted;
  std::string problem;  // of a queue that failed or was interrupted
  std::string address;
  std::vector<std::string> missing;  // what the printer did not give
  std::string advice;                // about the device URI; may be empty
  std::vector<UpdateLine> lines;     // what is to be stored
  std::vector<StoredSetting> before;
  std::vector<StoredSetting> after;  // empty when nothing was sent
};

// One result for each queue, in the order asked for. Ends early at SIGINT or SIGTERM: update jobs
// that are being processed are waited for and others are cancelled, so that no queue is half
// updated.
std::vector<SyncResult> syncQueues(const SyncRequest& request, const Console& console);

}  // namespace kelm::ctl
