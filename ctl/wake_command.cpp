// kelmctl wake: asks the wake-up service to wake printers, as the filter does before a job, and the
// printers whether they are awake.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <iterator>
#include <memory>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "ctl/commands.hpp"
#include "ctl/exit_status.hpp"
#include "ctl/interruption.hpp"
#include "ctl/json.hpp"
#include "ctl/message.hpp"
#include "ctl/print_server.hpp"
#include "ctl/queue_options.hpp"
#include "ctl/safe_text.hpp"
#include "ctl/server_options.hpp"
#include "ctl/terminal.hpp"
#include "ctl/update_lines.hpp"
#include "ctl/wake_plan.hpp"
#include "ctl/worker_pool.hpp"
#include "platform/platform.hpp"
#include "snmp/bracketed_address.hpp"
#include "snmp/qv_snmp_helper.hpp"
#include "wakeup/wake_up_settings.hpp"
#include "wakeup/xpc_call_object.hpp"

namespace kelm::ctl {
namespace {

using namespace std::chrono_literals;
constexpr std::chrono::milliseconds kStep{100};
constexpr std::chrono::milliseconds kTurn{20};
constexpr std::chrono::seconds kLongestWait{240};  // as long as a job waits
constexpr std::chrono::seconds kPauseOfLines{10};  // where there is no progress line
constexpr unsigned kMostAtATime = 64;  // as many printers as the service wakes at a time
constexpr std::size_t kMostLookUps = 64;
constexpr char kWoken[] = "woken";
constexpr char kNotWoken[] = "not woken";
constexpr char kInterrupted[] = "interrupted";

struct Arguments {
  std::vector<std::string> queues;
  ServerOptions server;
  std::optional<std::string> macAddress;
  std::optional<std::string> address;
  std::string community = "public";
  bool overRouter = false;
  unsigned jobs = 32;
  bool json = false;
  bool quiet = false;
};

using Clock = std::chrono::steady_clock;
std::chrono::seconds secondsSince(Clock::time_point start) {
  return std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start);
}

// The time until the service called back, or until no call-back could come any more.
std::chrono::seconds waitForCallBack(const std::atomic<bool>& finished,
                                     const platform::WakeUpConnection& connection) {
  const auto start = Clock::now();
  while (!finished && connection.isOpen() && Clock::now() - start < kLongestWait) {
    std::this_thread::sleep_for(kStep);
  }
  return secondsSince(start);
}

bool isAwake(const platform::WakeUpRequest& request) {
  std::int32_t mode = -1;
  return snmp::QVSNMPHelper::getSleepMode_community_sleepMode_(
             snmp::bracketed(*request.address).c_str(), request.snmpCommunity.c_str(), &mode) == 0;
}

struct Outcome {
  std::string result;  // "woken", "silent", "refused", "not woken" or "interrupted"
  std::chrono::seconds time{0};
  std::string reason;  // empty: woken

  bool isWoken() const { return result == kWoken; }
};

Outcome wake(const platform::WakeUpRequest& request) {
  std::atomic<bool> finished = false;
  const auto connection =
      platform::platform().wakeUpBus->send(request, [&finished] { finished = true; });
  const std::chrono::seconds time = waitForCallBack(finished, *connection);
  if (finished && isAwake(request)) return {kWoken, time, {}};
  if (finished) {
    return {"silent", time,
            "the printer does not answer SNMP requests of this community; check its power, network "
            "and MAC address"};
  }
  const std::string refusal = connection->refusal();
  if (!refusal.empty()) return {"refused", time, refusal};
  const std::string failure = connection->failure();
  return {kNotWoken, time,
          (failure.empty() ? "the wake-up service did not call back" : failure) +
              "; check that KelmWoLServices is installed and run this as root"};
}

Outcome died() { return {kNotWoken, {}, "its process died"}; }

// From one process to another: "+" and the address, or "-".
std::string packed(const std::optional<std::string>& address) {
  return address ? '+' + *address : "-";
}

std::optional<std::string> unpackedAddress(const std::string& bytes) {
  return bytes.front() == '+' ? std::optional(bytes.substr(1)) : std::nullopt;
}

// The result and the seconds, a line each, then the reason.
std::string packed(const Outcome& outcome) {
  return outcome.result + '\n' + std::to_string(outcome.time.count()) + '\n' + outcome.reason;
}

Outcome unpacked(const std::optional<std::string>& bytes) {
  std::istringstream lines(bytes.value_or(""));
  Outcome outcome;
  std::int64_t seconds = 0;
  if (!std::getline(lines, outcome.result) || !(lines >> seconds) || lines.get() != '\n') {
    return died();
  }
  outcome.time = std::chrono::seconds(seconds);
  outcome.reason.assign(std::istreambuf_iterator<char>(lines), {});
  return outcome;
}

struct Task {
  std::string name;       // of the queue, or the printer's address
  QueuedPrinter printer;  // of the queue
  WakePlan plan;
  bool isOver = false;
  std::optional<Clock::time_point> lookUp;  // absent: no name was looked up
  std::optional<Clock::time_point> start;   // absent: the service was not asked
};

// Wakes all printers at the same time, each in a process of its own. It begins while the print
// servers are still being asked for the PPDs of other queues.
class Waking {
 public:
  Waking(const Arguments& arguments, const Console& console)
      : arguments_(arguments),
        console_(console),
        lookUps_(kMostLookUps),
        wakeUps_(arguments.jobs),
        progress_(console) {
    if (arguments.queues.empty()) {
      tasks_.emplace_back().name = arguments.address.value_or("");
    } else {
      server_.emplace(serversOf(arguments.server).front(), console, PrintServer::kPatience);
    }
    for (const std::string& queue : uniqueNames(arguments.queues)) {
      tasks_.emplace_back().name = queue;
    }
  }

  int run() {
    while (over_ < tasks_.size() && !Interruption::isWanted()) turn();
    progress_.show("");
    for (const Task& task : tasks_) {
      if (!task.isOver) tell(task, interrupted(task));
    }
    if (!isSingle() && !arguments_.quiet && !arguments_.json) {
      console_.out << woken_ << " of " << tasks_.size() << " printers are awake\n";
    }
    if (woken_ == tasks_.size()) return kExitDone;
    return woken_ == 0 ? kExitFailed : kExitPartly;
  }

 private:
  bool isSingle() const { return tasks_.size() == 1; }

  void turn() {
    const bool canPrepare = next_ < tasks_.size() && !lookUps_.isFull();
    if (canPrepare) prepareNext();
    lookUps_.wait(canPrepare ? 0ms : kTurn);
    while (!ready_.empty() && !wakeUps_.isFull()) {
      start(*ready_.front());
      ready_.pop_front();
    }
    wakeUps_.wait(0ms);
    showProgress();
  }

  // A task that is dropped moves those after it, which nothing refers to yet.
  void prepareNext() {
    const auto task = tasks_.begin() + static_cast<std::ptrdiff_t>(next_);
    if (server_) task->printer = queuedPrinter(*server_, task->name);
    if (server_) task->name = task->printer.queue;
    // CUPS finds a queue in any letter case, so two names may be one queue's.
    const bool isKnown = std::any_of(tasks_.begin(), task,
                                     [&](const Task& each) { return each.name == task->name; });
    if (isKnown) return void(tasks_.erase(task));
    ++next_;
    prepare(*task);
  }

  void prepare(Task& task) {
    if (!server_) return startUnlessProblem(task, planOfArguments());
    if (task.printer.problem.empty()) return lookUp(task);
    startUnlessProblem(task, {{}, task.printer.problem});
  }

  // In a process of its own: a name server that does not answer would hold up all printers, and
  // after it has been given up, the look-up still has a thread.
  void lookUp(Task& task) {
    task.lookUp = Clock::now();
    lookUps_.start(
        [uri = task.printer.deviceUri] { return packed(wakeup::XPCCallObject::addressOf(uri)); },
        [this, &task](const std::optional<std::string>& bytes) {
          progress_.show("");
          if (!bytes) return end(task, died());
          startUnlessProblem(task, wakePlanOf(task.printer, unpackedAddress(*bytes)));
        });
  }

  void startUnlessProblem(Task& task, WakePlan plan) {
    task.plan = std::move(plan);
    if (task.plan.problem.empty()) return ready_.push_back(&task);
    // An interruption also ends the attempts to reach a print server.
    if (!Interruption::isWanted()) end(task, {kNotWoken, {}, task.plan.problem});
  }

  WakePlan planOfArguments() const {
    const std::string macAddress = arguments_.macAddress.value_or("");
    const wakeup::WakeUpSettings settings{
        .snmpCommunity = arguments_.community,
        .macAddress = storableMacAddress(macAddress).value_or(macAddress),
        .isWakeOnLan = true,
        .isOverRouter = arguments_.overRouter};
    return wakePlanOf(settings, arguments_.address.value_or(""));
  }

  void start(Task& task) {
    task.start = Clock::now();
    wakeUps_.start([&task] { return packed(wake(task.plan.request)); },
                   [this, &task](const std::optional<std::string>& bytes) {
                     progress_.show("");
                     end(task, unpacked(bytes));
                   });
  }

  void end(Task& task, const Outcome& outcome) {
    task.isOver = true;
    ++over_;
    if (outcome.isWoken()) ++woken_;
    tell(task, outcome);
  }

  static Outcome interrupted(const Task& task) {
    if (!task.start) return {kInterrupted, {}, "the wake-up service was not asked"};
    return {kInterrupted, secondsSince(*task.start), "the printer was not waited for"};
  }

  void showProgress() {
    if (arguments_.quiet || over_ == tasks_.size()) return;
    if (isSingle()) return showSingle();
    progress_.show(std::to_string(over_) + " of " + std::to_string(tasks_.size()) +
                   " printers finished");
  }

  void showSingle() {
    const Task& task = tasks_.front();
    const auto& begin = task.start ? task.start : task.lookUp;
    if (arguments_.json || !begin) return;
    const std::chrono::seconds time = secondsSince(*begin);
    // Most look-ups take no time.
    if (time == told_ || (!task.start && time == 0s)) return;
    told_ = time;
    const std::string text =
        (task.start ? "waiting for the wake-up service: " : "looking up the printer's address: ") +
        std::to_string(time.count()) + " s";
    if (console_.errIsTerminal) return progress_.show(text);
    if (time % kPauseOfLines == 0s) console_.out << text << std::endl;
  }

  void tell(const Task& task, const Outcome& outcome) const {
    if (arguments_.json) tellJson(task, outcome);
    // The message about a single queue names it.
    if (isSingle() && !task.plan.problem.empty() && !arguments_.json) {
      return complain(console_, task.plan.problem);
    }
    const std::string after =
        task.start ? " after " + std::to_string(outcome.time.count()) + " s" : "";
    const std::string text = task.name + ": " + outcome.result + after;
    if (!outcome.isWoken()) {
      if (arguments_.quiet || !arguments_.json) complain(console_, text + ": " + outcome.reason);
    } else if (!arguments_.quiet && !arguments_.json) {
      console_.out << safeText(text) << std::endl;
    }
  }

  void tellJson(const Task& task, const Outcome& outcome) const {
    const auto& address = task.plan.request.address;
    console_.out << textOf({{"name", task.name},
                            {"address", address},
                            {"result", outcome.result},
                            {"seconds", outcome.time.count()},
                            {"message", outcome.reason}},
                           JsonLayout::kOneLine)
                 << std::endl;
  }

  const Arguments& arguments_;
  const Console& console_;
  Interruption interruption_;
  std::optional<PrintServer> server_;
  std::vector<Task> tasks_;
  std::size_t next_ = 0;     // to prepare
  std::deque<Task*> ready_;  // to be woken
  std::size_t over_ = 0;
  std::size_t woken_ = 0;
  WorkerPool lookUps_;
  WorkerPool wakeUps_;
  ProgressLine progress_;
  std::chrono::seconds told_{-1};
};

bool namesPrinter(const Arguments& arguments) {
  return !arguments.queues.empty() || (arguments.macAddress && arguments.address);
}

}  // namespace

Action declareWake(ArgumentList& list) {
  auto arguments = std::make_shared<Arguments>();
  const Argument queues =
      list.add("QUEUE", arguments->queues, "The queues, as lpstat -v names them");
  queues.valueName("");
  const auto addOption = [&](const char* name, const char* kind, auto& value, const char* help) {
    list.add(name, value, help).valueName(kind).excludes(queues);
  };
  addOption("--mac", "MAC", arguments->macAddress,
            "Six hexadecimal parts between colons or hyphens");
  addOption("--address", "ADDRESS", arguments->address, "IP address or host name");
  addOption("--community", "NAME", arguments->community, "SNMP community (public)");
  list.addFlag("--over-router", arguments->overRouter, "The printer is beyond a router")
      .excludes(queues);
  list.addNumber("--jobs", arguments->jobs, 1, kMostAtATime, "Printers to wake at a time (32)");
  list.addFlag("--json", arguments->json, "One JSON object for each printer, for programs");
  list.addFlag("--quiet", arguments->quiet, "Show only the printers that are not woken");
  declareServer(list, arguments->server);
  list.require("QUEUE, or --mac and --address,", [arguments] { return namesPrinter(*arguments); });
  return [arguments](const Console& console) {
    const Console shown = arguments->quiet ? withoutProgress(console) : console;
    return Waking(*arguments, shown).run();
  };
}

}  // namespace kelm::ctl
