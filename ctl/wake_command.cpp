// kelmctl wake: asks the wake-up service to wake a printer, as the filter does before a job.
// SPDX-License-Identifier: Apache-2.0
#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "ctl/commands.hpp"
#include "ctl/exit_status.hpp"
#include "ctl/queue_ppd.hpp"
#include "ctl/safe_text.hpp"
#include "ctl/terminal.hpp"
#include "platform/platform.hpp"
#include "wakeup/wake_up_settings.hpp"
#include "wakeup/xpc_call_object.hpp"
#include "wolservice/wake_up_order.hpp"

namespace kelm::ctl {
namespace {

constexpr std::chrono::seconds kStep{1};
constexpr int kMostSteps = 240;    // as long as a job waits
constexpr int kStepsPerLine = 10;  // where nobody watches a progress line

struct Arguments {
  std::optional<std::string> queue;
  std::optional<std::string> macAddress;
  std::optional<std::string> address;
  std::string community = "public";
  bool overRouter = false;
};

// What to ask for, or, when `problem` is not empty, why nothing is asked and what to do about it.
struct Plan {
  platform::WakeUpRequest request;
  std::string problem;
};

Plan planOfArguments(const Arguments& arguments) {
  const wakeup::WakeUpSettings settings{.snmpCommunity = arguments.community,
                                        .macAddress = arguments.macAddress.value_or(""),
                                        .isWakeOnLan = true,
                                        .isOverRouter = arguments.overRouter};
  return {wakeup::requestFor(settings, arguments.address), {}};
}

Plan planOfQueue(const std::string& queue) {
  const std::string name = "the queue \"" + queue + "\"";
  const OpenedPpd opened = openQueuePpd(queue);
  if (opened.ppd == nullptr) return {{}, opened.problem};
  const wakeup::WakeUpSettings settings = wakeup::wakeUpSettingsOf(opened.ppd.get());
  if (!settings.isWakeOnLan) {
    return {{},
            name +
                " has its wake-up switched off; switch it on in the print dialog, or give"
                " --mac and --address"};
  }
  const wakeup::Text uri = wakeup::deviceUriOf(queue);
  if (!uri) return {{}, name + " has no device URI; \"lpstat -v\" lists the queues"};
  return {wakeup::requestFor(settings, wakeup::XPCCallObject::addressOf(uri)), {}};
}

// The service calls back at once for arguments that it refuses: looked at here, they get a message.
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

class Report {
 public:
  explicit Report(const Console& console) : console_(console), line_(console) {}

  void waiting(int seconds) {
    const std::string text = "waiting for the wake-up service: " + std::to_string(seconds) + " s";
    if (console_.errIsTerminal) {
      line_.show(text);
    } else if (seconds % kStepsPerLine == 0) {
      console_.out << text << std::endl;
    }
  }

 private:
  const Console& console_;
  ProgressLine line_;
};

// How many seconds it took until the service called back; nothing when it did not.
std::optional<int> waitForCallBack(const std::atomic<bool>& finished,
                                   const platform::WakeUpConnection& connection,
                                   const Console& console) {
  Report report(console);
  for (int seconds = 0; seconds < kMostSteps; ++seconds) {
    if (finished) return seconds;
    if (!connection.isOpen()) return std::nullopt;
    report.waiting(seconds);
    platform::platform().steadyClock->sleep(kStep);
  }
  return finished ? std::optional(kMostSteps) : std::nullopt;
}

int wake(const platform::WakeUpRequest& request, const Console& console) {
  const std::string address = safeText(*request.address);
  std::atomic<bool> finished = false;
  const auto connection =
      platform::platform().wakeUpBus->send(request, [&finished] { finished = true; });
  if (const auto seconds = waitForCallBack(finished, *connection, console)) {
    console.out << address << ": the wake-up service is done after " << *seconds << " s\n";
    return kExitDone;
  }
  const std::string failure = connection->failure();
  console.err << "kelmctl: " << address << " was not woken: "
              << (failure.empty() ? "the wake-up service did not call back" : safeText(failure))
              << "; check that KelmWoLServices is installed and run this as root\n";
  return kExitFailed;
}

int wakePrinter(const Arguments& arguments, const Console& console) {
  Plan plan = arguments.queue ? planOfQueue(*arguments.queue) : planOfArguments(arguments);
  checkRequest(plan);
  if (plan.problem.empty()) return wake(plan.request, console);
  console.err << "kelmctl: " << safeText(plan.problem) << '\n';
  return kExitFailed;
}

bool namesPrinter(const Arguments& arguments) {
  return arguments.queue || (arguments.macAddress && arguments.address);
}

}  // namespace

Action declareWake(ArgumentList& list) {
  auto arguments = std::make_shared<Arguments>();
  const Argument queue = list.add("QUEUE", arguments->queue, "The queue, as lpstat -v names it");
  queue.valueName("");
  const auto addOption = [&](const char* name, auto& value, const char* help) {
    list.add(name, value, help).valueName("").excludes(queue);
  };
  addOption("--mac", arguments->macAddress, "MAC address, six hexadecimal parts between colons");
  addOption("--address", arguments->address, "IP address or host name");
  addOption("--community", arguments->community, "SNMP community (public)");
  list.addFlag("--over-router", arguments->overRouter, "The printer is beyond a router")
      .excludes(queue);
  list.require("QUEUE, or --mac and --address,", [arguments] { return namesPrinter(*arguments); });
  return [arguments](const Console& console) { return wakePrinter(*arguments, console); };
}

}  // namespace kelm::ctl
