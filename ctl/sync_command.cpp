// kelmctl sync: asks queues' printers and stores the answers in the queues' PPDs.
// SPDX-License-Identifier: Apache-2.0
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "base/utf.hpp"
#include "ctl/commands.hpp"
#include "ctl/exit_status.hpp"
#include "ctl/message.hpp"
#include "ctl/printer_facts.hpp"
#include "ctl/queue_options.hpp"
#include "ctl/sync.hpp"
#include "ctl/sync_report.hpp"
#include "ctl/terminal.hpp"

namespace kelm::ctl {
namespace {

using Clock = std::chrono::steady_clock;

// Each printer needs a socket, and a process may have 1024 descriptors.
constexpr unsigned kMostPrintersAtATime = 900;
constexpr unsigned kLongestWait = 86400;

struct Arguments {
  QueueOptions queues;
  SyncRequest request;
  unsigned wait = 120;  // seconds
  bool json = false;
  bool quiet = false;
};

void report(const Arguments& arguments, const std::vector<SyncResult>& results,
            std::chrono::milliseconds time, const Console& console) {
  const bool dryRun = arguments.request.dryRun;
  if (arguments.quiet) writeProblems(results, console);
  if (arguments.json) return writeJson(results, dryRun, console);
  if (arguments.quiet) return;
  if (!arguments.queues.all && results.size() == 1) {
    return writeOne(results.front(), dryRun, console);
  }
  writeMany(results, dryRun, time, console);
}

// A community that the next job could not read from the queue's PPD, or that no printer has.
std::string communityProblem(const std::string& name) {
  const bool isSound = !name.empty() && base::utf16Length(name).has_value();
  return isSound ? "" : "the community must be UTF-8 text and not empty";
}

int sync(const Arguments& arguments, const Console& console) {
  SyncRequest request = arguments.request;
  if (request.address && (arguments.queues.all || arguments.queues.names.size() > 1)) {
    complain(console, "--address works with one queue only");
    return kExitUsage;
  }
  request.servers = serversOf(arguments.queues.server);
  request.queues = uniqueNames(arguments.queues.names);
  request.wait = std::chrono::seconds(arguments.wait);
  const auto start = Clock::now();
  const Console shown = arguments.quiet ? withoutProgress(console) : console;
  const std::vector<SyncResult> results = syncQueues(request, shown);
  const auto time = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
  report(arguments, results, time, console);
  return exitStatusOf(results);
}

}  // namespace

Action declareSync(ArgumentList& list) {
  auto arguments = std::make_shared<Arguments>();
  SyncRequest& request = arguments->request;
  declareQueues(list, arguments->queues);
  list.add("--address", request.address,
           "The printer's IP address or host name, instead of the device URI's")
      .valueName("ADDRESS")
      .check(addressProblem);
  list.add("--community", request.community,
           "The printer's SNMP community, instead of the stored one")
      .valueName("NAME")
      .check(communityProblem);
  list.addFlag("--dry-run", request.dryRun, "Show what would be stored, and store nothing");
  list.addNumber("--jobs", request.jobs, 1, kMostPrintersAtATime,
                 "Printers to ask at a time (500)");
  list.addNumber("--wait", arguments->wait, 0, kLongestWait,
                 "How long to wait for other jobs and other updates of a queue (120)")
      .valueName("SECONDS");
  list.addFlag("--json", arguments->json, "One JSON object for each queue, for programs");
  list.addFlag("--quiet", arguments->quiet, "Show only the queues that are not done");
  requireQueues(list, arguments->queues);
  return [arguments](const Console& console) { return sync(*arguments, console); };
}

}  // namespace kelm::ctl
