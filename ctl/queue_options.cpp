// The queues that a subcommand works on: by name, or all.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/queue_options.hpp"

#include <set>

namespace kelm::ctl {

void declareQueues(ArgumentList& list, QueueOptions& options) {
  list.add("QUEUE", options.names, "The queues, as lpstat -v names them")
      .valueName("")
      .excludes(list.addFlag("--all", options.all,
                             "All queues of the server that print with kelmfilter"));
  declareServers(list, options.server);
}

void requireQueues(ArgumentList& list, const QueueOptions& options) {
  list.require("QUEUE or --all", [&options] { return options.all || !options.names.empty(); });
}

std::vector<std::string> uniqueNames(std::vector<std::string> names) {
  std::set<std::string> known;
  std::erase_if(names, [&](const std::string& name) { return !known.insert(name).second; });
  return names;
}

}  // namespace kelm::ctl
