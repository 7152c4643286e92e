// kelmctl wake: asks the wake-up service to wake printers, as the filter does before a job, and the
// printers whether they are awake.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
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
using Json = nlohmann::ordered_json;

constexpr std::chrono::milliseconds kStep{100};
constexpr std::chrono::seconds kLongestWait{240};  // as long as a job waits
constexpr std::chrono::seconds kPauseOfLines{10};  // where there is no progress line
constexpr unsigned kMostAtATime = 64;  // as many printers as the service wakes at a time
constexpr char kWoken[] = "woken";
constexpr char kNotWoken[] = "not woken";

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
  if (plan.problem.empty() && found.queues.front().isClass) plan.problem = classProblem(queue);
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

std::string dump(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
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

// How long it took until the service called back or no call-back can come any more.
std::chrono::seconds waitForCallBack(const std::atomic<bool>& finished,
                                     const platform::WakeUpConnection& connection,
                                     const Waiting& waiting) {
  const auto start = Clock::now();
  std::chrono::seconds told{-1};
  while (!finished && connection.isOpen() && Clock::now() - start < kLongestWait) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start);
    if (seconds > told) waiting(told = seconds);
    std::this_thread::sleep_for(kStep);
  }
  return std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start);
}

bool isAwake(const platform::WakeUpRequest& request) {
  std::int32_t mode = -1;
  return snmp::QVSNMPHelper::getSleepMode_community_sleepMode_(
             snmp::bracketed(*request.address).c_str(), request.snmpCommunity.c_str(), &mode) == 0;
}

struct Outcome {
  std::string result;  // "woken", "silent", "refused" or "not woken"
  std::chrono::seconds time{0};
  std::string reason;  // empty: woken

  bool isWoken() const { return result == kWoken; }
};

Outcome wake(const platform::WakeUpRequest& request, const Waiting& waiting) {
  std::atomic<bool> finished = false;
  const auto connection =
      platform::platform().wakeUpBus->send(request, [&finished] { finished = true; });
  const std::chrono::seconds time = waitForCallBack(finished, *connection, waiting);
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

// From one process to another.
std::string packed(const Outcome& outcome) {
  return dump(Json{outcome.result, outcome.time.count(), outcome.reason});
}

Outcome unpacked(const std::optional<std::string>& bytes) {
  const Json values = Json::parse(bytes.value_or(""), nullptr, false);
  if (values.is_discarded()) return {kNotWoken, {}, "its process died"};
  return {values[0], std::chrono::seconds(values[1]), values[2]};
}

void tellJson(const Plan& plan, const Outcome& outcome, const Console& console) {
  console.out << dump({{"name", plan.name},
                       {"address", plan.request.address ? Json(*plan.request.address) : Json()},
                       {"result", outcome.result},
                       {"seconds", outcome.time.count()},
                       {"message", outcome.reason}})
              << std::endl;
}

// Reports one outcome.
void tell(const Arguments& arguments, const Plan& plan, const Outcome& outcome,
          const Console& console) {
  if (arguments.json) tellJson(plan, outcome, console);
  const std::string after =
      plan.problem.empty() ? " after " + std::to_string(outcome.time.count()) + " s" : "";
  const std::string text = plan.name + ": " + outcome.result + after;
  if (!outcome.isWoken()) {
    if (arguments.quiet || !arguments.json) complain(console, text + ": " + outcome.reason);
  } else if (!arguments.quiet && !arguments.json) {
    console.out << safeText(text) << std::endl;
  }
}

Outcome outcomeOf(const Plan& plan, const Waiting& waiting) {
  return plan.problem.empty() ? wake(plan.request, waiting) : Outcome{kNotWoken, {}, plan.problem};
}

int wakeOne(const Arguments& arguments, const Plan& plan, const Console& console) {
  if (!plan.problem.empty() && !arguments.json) return fail(console, plan.problem);
  Outcome outcome;
  {
    Report report(console);
    const bool isSilent = arguments.json || arguments.quiet;
    outcome = outcomeOf(plan, [&](std::chrono::milliseconds time) {
      if (!isSilent) report.waiting(time);
    });
  }
  tell(arguments, plan, outcome, console);
  return outcome.isWoken() ? kExitDone : kExitFailed;
}

// All printers at the same time, each in a process of its own.
int wakeMany(const Arguments& arguments, const std::vector<Plan>& plans, const Console& console) {
  const Interruption interruption;
  WorkerPool pool(arguments.jobs);
  ProgressLine progress(console);
  std::size_t woken = 0;
  std::size_t over = 0;
  auto next = plans.begin();
  while ((next != plans.end() || !pool.isIdle()) && !Interruption::isWanted()) {
    for (; next != plans.end() && !pool.isFull(); ++next) {
      const Plan& plan = *next;
      const auto work = [&plan] {
        return packed(outcomeOf(plan, [](std::chrono::milliseconds) {}));
      };
      pool.start(work, [&](const std::optional<std::string>& bytes) {
        const Outcome outcome = unpacked(bytes);
        progress.show("");
        tell(arguments, plan, outcome, console);
        if (outcome.isWoken()) ++woken;
        ++over;
      });
    }
    if (!arguments.quiet) {
      progress.show(std::to_string(over) + " of " + std::to_string(plans.size()) +
                    " printers finished");
    }
    pool.wait(kStep);
  }
  if (over < plans.size()) {
    complain(console, "interrupted; " + std::to_string(plans.size() - over) +
                          " printers were not waited for");
  }
  if (!arguments.quiet && !arguments.json) {
    console.out << woken << " of " << plans.size() << " printers are awake\n";
  }
  if (woken == plans.size()) return kExitDone;
  return woken == 0 ? kExitFailed : kExitPartly;
}

bool namesPrinter(const Arguments& arguments) {
  return !arguments.queues.empty() || (arguments.macAddress && arguments.address);
}

int wakePrinters(const Arguments& arguments, const Console& console) {
  const std::vector<Plan> plans = plansOf(arguments, console);
  if (plans.size() == 1) return wakeOne(arguments, plans.front(), console);
  return wakeMany(arguments, plans, console);
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
  list.addFlag("--json", arguments->json, "One JSON object for each printer, for programs");
  list.addFlag("--quiet", arguments->quiet, "Show only the printers that are not woken");
  declareServer(list, arguments->server);
  list.require("QUEUE, or --mac and --address,", [arguments] { return namesPrinter(*arguments); });
  return [arguments](const Console& console) { return wakePrinters(*arguments, console); };
}

}  // namespace kelm::ctl
