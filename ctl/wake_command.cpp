// kelmctl wake: asks the wake-up service to wake printers, as the filter does before a job, and the
// printers whether they are awake.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

#include "ctl/commands.hpp"
#include "ctl/exit_status.hpp"
#include "ctl/interruption.hpp"
#include "ctl/message.hpp"
#include "ctl/print_server.hpp"
#include "ctl/safe_text.hpp"
#include "ctl/server_options.hpp"
#include "ctl/terminal.hpp"
#include "ctl/worker_pool.hpp"
#include "platform/platform.hpp"
#include "snmp/bracketed_address.hpp"
#include "snmp/qv_snmp_helper.hpp"
#include "wakeup/wake_up_settings.hpp"
#include "wakeup/xpc_call_object.hpp"
#include "wolservice/wake_up_order.hpp"

namespace kelm::ctl {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kStep{100};
constexpr std::chrono::seconds kLongestWait{240};  // as long as a job waits
constexpr std::chrono::seconds kPauseOfLines{10};  // where there is no progress line
// The service wakes for a minute. It calls back well before that when the printer answers, when it
// refuses the order, and when it ends.
constexpr std::chrono::seconds kNearlyAMinute{55};
constexpr unsigned kMostAtATime = 64;  // as many printers as the service wakes at a time

struct Arguments {
  std::vector<std::string> queues;
  ServerOptions server;
  std::optional<std::string> macAddress;
  std::optional<std::string> address;
  std::string community = "public";
  bool overRouter = false;
  unsigned jobs = 32;
};

// What to ask for, or, when `problem` is not empty, why nothing is asked and what to do.
struct Plan {
  std::string name;  // of the printer or its queue, for messages
  platform::WakeUpRequest request;
  std::string problem;
};

Plan planOfArguments(const Arguments& arguments) {
  const std::string address = snmp::unbracketed(arguments.address.value_or(""));
  const wakeup::WakeUpSettings settings{.snmpCommunity = arguments.community,
                                        .macAddress = arguments.macAddress.value_or(""),
                                        .isWakeOnLan = true,
                                        .isOverRouter = arguments.overRouter};
  return {address, wakeup::requestFor(settings, address), {}};
}

std::string problemOf(const wakeup::WakeUpSettings& settings, const std::string& queue) {
  const std::string name = "the queue \"" + queue + "\"";
  if (!settings.isWakeOnLan) {
    return name +
           " has its wake-up switched off; switch it on in the print dialog, or give --mac and "
           "--address";
  }
  if (settings.macAddress.empty()) {
    return name + " does not know its printer's MAC address; store it: kelmctl sync " + queue;
  }
  return {};
}

Plan planOfQueue(PrintServer& server, const std::string& queue) {
  Plan plan{queue, {}, {}};
  const OpenedPpd opened = server.openPpd(queue);
  plan.problem = opened.problem;
  if (opened.ppd == nullptr) return plan;
  const wakeup::WakeUpSettings settings = wakeup::wakeUpSettingsOf(opened.ppd.get());
  plan.problem = problemOf(settings, queue);
  const Queues found = server.queue(queue);
  if (plan.problem.empty()) plan.problem = found.problem;
  if (!plan.problem.empty()) return plan;
  const std::string& uri = found.queues.front().deviceUri;
  plan.request = wakeup::requestFor(settings, wakeup::XPCCallObject::addressOf(uri));
  return plan;
}

// The service calls back at once for arguments that it refuses, so they are checked here, with
// messages.
void checkRequest(Plan& plan) {
  if (!plan.problem.empty()) return;
  const platform::WakeUpRequest& request = plan.request;
  std::string problem;
  if (wolservice::checkedOrder({request.address.value_or(""), request.macAddress,
                                request.snmpCommunity, request.isWakeOnLan, request.isOverRouter},
                               problem)) {
    return;
  }
  plan.problem = "the printer \"" + request.address.value_or("") + "\" with the MAC address \"" +
                 request.macAddress + "\" cannot be woken: " + problem +
                 "; correct it, or see kelmctl address for the queue's device URI";
}

std::vector<Plan> plansOf(const Arguments& arguments, const Console& console) {
  std::vector<Plan> plans;
  if (arguments.queues.empty()) {
    plans.push_back(planOfArguments(arguments));
  } else {
    PrintServer server(serversOf(arguments.server).front(), console);
    for (const std::string& queue : arguments.queues) plans.push_back(planOfQueue(server, queue));
  }
  for (Plan& plan : plans) checkRequest(plan);
  return plans;
}

std::string secondsOf(std::chrono::milliseconds time) {
  return std::to_string(std::chrono::duration_cast<std::chrono::seconds>(time).count()) + " s";
}

class Report {
 public:
  explicit Report(const Console& console) : console_(console), line_(console) {}

  void waiting(std::chrono::milliseconds time) {
    const std::string text = "waiting for the wake-up service: " + secondsOf(time);
    if (console_.errIsTerminal) {
      line_.show(text);
    } else if (time % kPauseOfLines == 0ms) {
      console_.out << text << std::endl;
    }
  }

 private:
  const Console& console_;
  ProgressLine line_;
};

using Clock = std::chrono::steady_clock;
using Waiting = std::function<void(std::chrono::milliseconds)>;

// How long it took until the service called back; nothing when it did not.
std::optional<std::chrono::milliseconds> waitForCallBack(
    const std::atomic<bool>& finished, const platform::WakeUpConnection& connection,
    const Waiting& waiting) {
  const auto start = Clock::now();
  std::chrono::seconds told{-1};
  while (!finished && connection.isOpen() && Clock::now() - start < kLongestWait) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start);
    if (seconds > told) waiting(told = seconds);
    std::this_thread::sleep_for(kStep);
  }
  if (!finished) return std::nullopt;
  return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
}

bool isAwake(const platform::WakeUpRequest& request) {
  std::int32_t mode = -1;
  return snmp::QVSNMPHelper::getSleepMode_community_sleepMode_(
             snmp::bracketed(*request.address).c_str(), request.snmpCommunity.c_str(), &mode) == 0;
}

struct Outcome {
  bool isWoken = false;
  std::string text;
};

std::string silenceOf(std::chrono::milliseconds time) {
  const std::string after = " after " + secondsOf(time);
  if (time < kNearlyAMinute) {
    return "refused" + after +
           ": the wake-up service gave up before its limit; its log says why (journalctl -u "
           "kelm-wol)";
  }
  return "silent" + after +
         ": the printer does not answer SNMP requests of this community; check its power, network "
         "and MAC address";
}

Outcome wake(const platform::WakeUpRequest& request, const Waiting& waiting) {
  std::atomic<bool> finished = false;
  const auto connection =
      platform::platform().wakeUpBus->send(request, [&finished] { finished = true; });
  const auto time = waitForCallBack(finished, *connection, waiting);
  if (time) {
    if (isAwake(request)) return {true, "woken after " + secondsOf(*time)};
    return {false, silenceOf(*time)};
  }
  const std::string failure = connection->failure();
  return {false,
          "not woken: " + (failure.empty() ? "the wake-up service did not call back" : failure) +
              "; check that KelmWoLServices is installed and run this as root"};
}

// Reports one outcome; returns whether the printer is awake.
bool tell(const Plan& plan, const Outcome& outcome, const Console& console) {
  if (outcome.isWoken) {
    console.out << safeText(plan.name) << ": " << safeText(outcome.text) << std::endl;
  } else {
    complain(console, plan.name + ": " + outcome.text);
  }
  return outcome.isWoken;
}

int wakeOne(const Plan& plan, const Console& console) {
  if (!plan.problem.empty()) return fail(console, plan.problem);
  Outcome outcome;
  {
    Report report(console);
    outcome = wake(plan.request, [&](std::chrono::milliseconds time) { report.waiting(time); });
  }
  return tell(plan, outcome, console) ? kExitDone : kExitFailed;
}

// All printers at the same time, each in a process of its own.
int wakeMany(const std::vector<Plan>& plans, unsigned jobs, const Console& console) {
  const Interruption interruption;
  WorkerPool pool(jobs);
  ProgressLine progress(console);
  std::size_t woken = 0;
  std::size_t over = 0;
  auto next = plans.begin();
  while ((next != plans.end() || !pool.isIdle()) && !Interruption::isWanted()) {
    for (; next != plans.end() && !pool.isFull(); ++next) {
      const Plan& plan = *next;
      const auto work = [&plan] {
        if (!plan.problem.empty()) return "-" + plan.problem;
        const Outcome outcome = wake(plan.request, [](std::chrono::milliseconds) {});
        return (outcome.isWoken ? "+" : "-") + outcome.text;
      };
      pool.start(work, [&](const std::optional<std::string>& result) {
        const std::string text = result.value_or("-its process died");
        if (tell(plan, {text.front() == '+', text.substr(1)}, console)) ++woken;
        ++over;
      });
    }
    progress.show(std::to_string(over) + " of " + std::to_string(plans.size()) +
                  " printers finished");
    pool.wait(kStep);
  }
  if (over < plans.size()) {
    complain(console, "interrupted; " + std::to_string(plans.size() - over) +
                          " printers were not waited for");
  }
  console.out << woken << " of " << plans.size() << " printers are awake\n";
  if (woken == plans.size()) return kExitDone;
  return woken == 0 ? kExitFailed : kExitPartly;
}

bool namesPrinter(const Arguments& arguments) {
  return !arguments.queues.empty() || (arguments.macAddress && arguments.address);
}

int wakePrinters(const Arguments& arguments, const Console& console) {
  const std::vector<Plan> plans = plansOf(arguments, console);
  if (plans.size() == 1) return wakeOne(plans.front(), console);
  return wakeMany(plans, arguments.jobs, console);
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
  addOption("--mac", "MAC", arguments->macAddress, "Six hexadecimal parts between colons");
  addOption("--address", "ADDRESS", arguments->address, "IP address or host name");
  addOption("--community", "NAME", arguments->community, "SNMP community (public)");
  list.addFlag("--over-router", arguments->overRouter, "The printer is beyond a router")
      .excludes(queues);
  list.addNumber("--jobs", arguments->jobs, 1, kMostAtATime, "Printers to wake at a time (32)");
  declareServer(list, arguments->server);
  list.require("QUEUE, or --mac and --address,", [arguments] { return namesPrinter(*arguments); });
  return [arguments](const Console& console) { return wakePrinters(*arguments, console); };
}

}  // namespace kelm::ctl
