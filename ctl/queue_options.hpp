// The queues that a subcommand works on: by name, or all.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "ctl/server_options.hpp"

namespace kelm::ctl {

struct QueueOptions {
  std::vector<std::string> names;  // empty with `all`
  bool all = false;
  ServerOptions server;
};

// Adds QUEUE..., --all and the options of declareServers. `options` outlives the list.
void declareQueues(ArgumentList& list, QueueOptions& options);

// A usage error unless either names or --all are given.
void requireQueues(ArgumentList& list, const QueueOptions& options);

// `names` without repetition, in their order.
std::vector<std::string> uniqueNames(std::vector<std::string> names);

}  // namespace kelm::ctl
