// kelmctl refresh: gives queues the installed PPD and keeps their facts and defaults.
// SPDX-License-Identifier: Apache-2.0
#include <cups/cups.h>

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "ctl/commands.hpp"
#include "ctl/exit_status.hpp"
#include "ctl/interruption.hpp"
#include "ctl/message.hpp"
#include "ctl/opened_ppd.hpp"
#include "ctl/print_server.hpp"
#include "ctl/queue_locks.hpp"
#include "ctl/queue_options.hpp"
#include "ctl/refreshed_ppd.hpp"
#include "ctl/safe_text.hpp"
#include "ctl/stored_state.hpp"
#include "ctl/temporary_file.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::ctl {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kPause = 200ms;
constexpr unsigned kLongestWait = 86400;
constexpr std::size_t kLargestPpd = AnswerLimits{}.ppd;

struct Arguments {
  QueueOptions queues;
  std::optional<std::string> ppd;
  bool dryRun = false;
  unsigned wait = 120;  // seconds
};

// The text of a PPD, unpacked where it is compressed; nothing when it cannot be read.
std::optional<std::string> textOf(cups_file_t* file) {
  if (file == nullptr) return std::nullopt;
  std::string text;
  char block[65536];
  ssize_t count = 0;
  while (text.size() <= kLargestPpd && (count = cupsFileRead(file, block, sizeof block)) > 0) {
    text.append(block, static_cast<std::size_t>(count));
  }
  const bool isWhole = cupsFileEOF(file) != 0 && text.size() <= kLargestPpd;
  cupsFileClose(file);
  return isWhole ? std::optional(text) : std::nullopt;
}

// A PPD as text and as libcups reads it, or the problem.
struct Ppd {
  std::string text;
  PpdHandle ppd;
  std::string problem;
  bool isForeign = false;
};

Ppd ppdOf(OpenedPpd opened, cups_file_t* file, const std::string& description,
          const std::string& advice) {
  std::optional<std::string> text = textOf(file);
  if (opened.ppd != nullptr && !text) {
    return {{}, nullptr, description + " cannot be read to its end; " + advice};
  }
  return {text.value_or(""), std::move(opened.ppd), std::move(opened.problem)};
}

Ppd readPpd(const std::string& path, const std::string& description, const std::string& advice) {
  return ppdOf(openPpdAt(path, description, advice), cupsFileOpen(path.c_str(), "r"), description,
               advice);
}

// One after the other: all descriptors of the file share their place in it.
Ppd readPpd(const TemporaryFile& file, const std::string& description, const std::string& advice) {
  OpenedPpd opened = openPpdIn(file, description, advice);
  return ppdOf(std::move(opened), cupsFileOpenFd(file.descriptorAtTheBeginning(), "r"), description,
               advice);
}

std::string attributeOf(ppd_file_t* ppd, const char* name) {
  const ppd_attr_t* attribute = ppdFindAttr(ppd, name, nullptr);
  return attribute != nullptr && attribute->value != nullptr ? attribute->value : "";
}

class Refresh {
 public:
  Refresh(const Arguments& arguments, const Console& console)
      : arguments_(arguments), console_(console) {}

  int run() {
    const std::vector<std::string> servers = serversOf(arguments_.queues.server);
    for (const std::string& name : servers) {
      PrintServer server(name, console_, PrintServer::kPatience);
      label_ = servers.size() > 1 ? server.name() + "/" : "";
      installed_.clear();
      refreshAll(server);
    }
    if (failed_ == 0) return kExitDone;
    return done_ == 0 ? kExitFailed : kExitPartly;
  }

 private:
  void refreshAll(PrintServer& server) {
    if (!arguments_.queues.all) {
      std::set<std::string> known;
      for (const std::string& queue : uniqueNames(arguments_.queues.names)) {
        const Queues found = server.queue(queue);
        if (!found.problem.empty() || found.queues.front().isClass) {
          complainOf(queue,
                     found.problem.empty() ? classProblem(found.queues.front()) : found.problem);
        } else if (known.insert(found.queues.front().name).second) {
          // CUPS finds a queue in any letter case, but its lock has one name.
          count(server, found.queues.front());
        }
      }
      return;
    }
    const Queues found = server.allQueues();
    if (!found.problem.empty()) complainOf("", found.problem);
    for (const Queue& queue : found.queues) {
      if (!queue.isClass) count(server, queue);
    }
  }

  void count(PrintServer& server, const Queue& queue) {
    if (Interruption::isWanted()) {
      return complainOf(queue.name, "interrupted; nothing was changed");
    }
    if (refresh(server, queue)) ++done_;
  }

  void complainOf(const std::string& queue, const std::string& problem) {
    complain(console_, queue.empty() ? problem : label_ + queue + ": " + problem);
    ++failed_;
  }

  void say(const std::string& queue, const std::string& text) const {
    console_.out << safeText(label_ + queue + ": " + text) << std::endl;
  }

  // False when it failed, which was reported, or when the queue does not use this driver.
  bool refresh(PrintServer& server, const Queue& queue) {
    if (arguments_.dryRun) return refreshLocked(server, queue);
    if (!locks_.problem().empty()) return complainOf(queue.name, locks_.problem()), false;
    const pid_t holder = lock(server, queue);
    if (holder != 0) {
      complainOf(queue.name, nameOfHolder(holder) + " is updating it; try again later");
      return false;
    }
    const bool isDone = refreshLocked(server, queue);
    locks_.unlock(server.lockName(queue));
    return isDone;
  }

  // 0, or the process that has had the lock all the time.
  pid_t lock(PrintServer& server, const Queue& queue) {
    const auto end = Clock::now() + std::chrono::seconds(arguments_.wait);
    pid_t holder = locks_.tryLock(server.lockName(queue));
    if (holder != 0 && arguments_.wait > 0) {
      complain(console_, label_ + queue.name + ": " + nameOfHolder(holder) +
                             " is updating it; waiting for it");
    }
    while (holder != 0 && Clock::now() < end && !Interruption::isWanted()) {
      std::this_thread::sleep_for(kPause);
      holder = locks_.tryLock(server.lockName(queue));
    }
    return holder;
  }

  bool refreshLocked(PrintServer& server, const Queue& queue) {
    const Ppd old = queuePpd(server, queue);
    if (arguments_.queues.all && old.isForeign) return false;
    if (old.ppd == nullptr) return complainOf(queue.name, old.problem), false;
    const Ppd& fresh = installedPpd(server, attributeOf(old.ppd.get(), "NickName"));
    if (fresh.ppd == nullptr) return complainOf(queue.name, fresh.problem), false;
    const RefreshedPpd merged = refreshedPpd(fresh.text, fresh.ppd.get(), old.ppd.get());
    const std::string versions = "FileVersion " + attributeOf(old.ppd.get(), "FileVersion") +
                                 " -> " + attributeOf(fresh.ppd.get(), "FileVersion");
    if (haveSameLines(merged.text, old.text)) {
      say(queue.name, "nothing to do, it has the installed PPD");
      return true;
    }
    if (!arguments_.dryRun && !replace(server, queue, old, merged)) return false;
    tell(queue.name, versions, merged);
    return true;
  }

  void tell(const std::string& queue, const std::string& versions,
            const RefreshedPpd& merged) const {
    say(queue, (arguments_.dryRun ? "would be refreshed, " : "refreshed, ") + versions + ", with " +
                   std::to_string(merged.facts) + " stored lines and " +
                   std::to_string(merged.defaults) + " defaults of its own");
    for (const std::string& note : merged.notes) say(queue, note);
  }

  // Gives the queue the PPD and checks that the queue has it; if not, gives it the old one again.
  bool replace(PrintServer& server, const Queue& found, const Ppd& old,
               const RefreshedPpd& merged) {
    const std::string& queue = found.name;
    TemporaryFile file;
    if (!file.open() || !file.append(merged.text)) {
      return complainOf(queue, file.problem() + "; nothing was changed"), false;
    }
    const Ppd check = readPpd(file, "the new PPD", "nothing was changed");
    if (check.ppd == nullptr) return complainOf(queue, check.problem), false;
    const std::string reason = whyNotIdle(server, queue);
    if (!reason.empty()) return complainOf(queue, reason + "; nothing was changed"), false;
    std::string problem = server.setPpd(queue, merged.text);
    const Ppd now = queuePpd(server, found);
    if (problem.empty() && now.ppd != nullptr && haveSameLines(now.text, merged.text)) return true;
    if (problem.empty())
      problem = now.ppd == nullptr ? now.problem : "the print server did not keep the new PPD";
    const bool isOld = now.ppd != nullptr && haveSameLines(now.text, old.text);
    const bool isBack = isOld || server.setPpd(queue, old.text).empty();
    complainOf(queue, problem + (isBack ? "; it has its old PPD"
                                        : "; " + adviceForPpd("give it a PPD", found)));
    return false;
  }

  // Waits for the end of a job that is being printed; empty: none is.
  std::string whyNotIdle(PrintServer& server, const std::string& queue) const {
    const auto end = Clock::now() + std::chrono::seconds(arguments_.wait);
    for (;;) {
      const Queues found = server.queue(queue);
      if (!found.problem.empty()) return found.problem;
      if (!found.queues.front().isPrinting) return {};
      if (Interruption::isWanted()) return "interrupted while it is printing";
      if (Clock::now() >= end) return "it is printing, and a new PPD would restart its job";
      std::this_thread::sleep_for(kPause);
    }
  }

  // The PPD of a queue that prints with kelmfilter.
  Ppd queuePpd(PrintServer& server, const Queue& queue) const {
    const PrintServer::PpdCopy copy = server.copyPpd(queue);
    if (!copy.problem.empty()) return {{}, nullptr, copy.problem, copy.isForeign};
    Ppd ppd = readPpd(copy.file, "the PPD of the queue " + inQuotes(queue.name),
                      adviceForPpd("give the queue a valid one", queue));
    if (ppd.ppd == nullptr || printsWithKelmfilter(ppd.ppd.get())) return ppd;
    return {{}, nullptr, foreignProblem(queue, ppd.ppd.get()), true};
  }

  // Read once for all queues of a server.
  const Ppd& installedPpd(PrintServer& server, const std::string& nickName) {
    const auto known = installed_.find(nickName);
    if (known != installed_.end()) return known->second;
    if (arguments_.ppd) {
      return installed_[nickName] =
                 readPpd(*arguments_.ppd, "the PPD file " + inQuotes(*arguments_.ppd),
                         "give the path of a readable PPD file");
    }
    const PrintServer::PpdCopy copy = server.copyInstalledPpd(nickName);
    if (!copy.problem.empty()) return installed_[nickName] = {{}, nullptr, copy.problem};
    Ppd& ppd = installed_[nickName] = readPpd(copy.file, "the installed PPD " + inQuotes(nickName),
                                              "install a valid one; nothing was changed");
    return ppd;
  }

  const Arguments& arguments_;
  const Console& console_;
  Interruption interruption_;
  QueueLocks locks_;
  std::map<std::string, Ppd> installed_;
  std::string label_;  // of the server before a queue's name, where there are several
  std::size_t done_ = 0;
  std::size_t failed_ = 0;
};

}  // namespace

Action declareRefresh(ArgumentList& list) {
  auto arguments = std::make_shared<Arguments>();
  declareQueues(list, arguments->queues);
  list.add("--ppd", arguments->ppd, "This PPD file instead of the installed one").valueName("FILE");
  list.addFlag("--dry-run", arguments->dryRun, "Show what would change, and change nothing");
  list.addNumber("--wait", arguments->wait, 0, kLongestWait,
                 "How long to wait for jobs and other updates of a queue (120)")
      .valueName("SECONDS");
  requireQueues(list, arguments->queues);
  return [arguments](const Console& console) { return Refresh(*arguments, console).run(); };
}

}  // namespace kelm::ctl
