// The wake-up service on the system bus.
// SPDX-License-Identifier: Apache-2.0
#include "wolservice/service.hpp"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <systemd/sd-daemon.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

#include "platform/wake_up_names.hpp"
#include "wolservice/network.hpp"
#include "wolservice/printer_work.hpp"
#include "wolservice/request_message.hpp"

namespace kelm::wolservice {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kAskInterval = 1s;
constexpr std::chrono::milliseconds kLimit = 60s;
constexpr std::chrono::milliseconds kIdle = 10s;
constexpr std::size_t kMaxWakeUps = 64;
constexpr std::size_t kMaxRequestsOfCaller = 8;
constexpr std::uint64_t kTimerAccuracy = 1000;  // microseconds

void say(const std::string& text) { std::fprintf(stderr, "KelmWoLServices: %s\n", text.c_str()); }

// Whether `status` is not an error; reports what failed otherwise.
bool done(int status, const char* what) {
  if (status < 0) say(std::string("cannot ") + what + ": " + std::strerror(-status));
  return status >= 0;
}

std::uint64_t microseconds(std::chrono::milliseconds time) {
  return static_cast<std::uint64_t>(std::chrono::microseconds(time).count());
}

constexpr int packetsWithin(std::chrono::milliseconds time) {
  int count = 0;
  while (packetDue(count) < time) ++count;
  return count;
}

// Starts a process that does `work` and then ends, at the latest when the service ends. Its exit
// status is 0 when the work was done. Returns its process id, or a negative errno.
pid_t fork(const std::function<bool()>& work) {
  const pid_t service = getpid();
  const pid_t process = ::fork();
  if (process != 0) return process < 0 ? -errno : process;
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  _exit(getppid() == service && work() ? 0 : 1);
}

std::uint64_t now(sd_event* event) {
  std::uint64_t time = 0;
  sd_event_now(event, CLOCK_MONOTONIC, &time);
  return time;
}

}  // namespace

int Service::run() {
  if (!openBus() || !addSources()) return 1;
  sd_notify(0, "READY=1");
  const bool busIsGone = sd_event_loop(event_.get()) != 0;
  if (busIsGone) say("lost the system bus");
  return busIsGone ? 1 : 0;
}

// Registers the object before the name, because a request that started the service waits only for
// the name.
bool Service::openBus() {
  sd_event* event = nullptr;
  sd_bus* bus = nullptr;
  if (!done(sd_event_new(&event), "watch for events")) return false;
  event_.reset(event);
  if (!done(sd_bus_open_system(&bus), "reach the system bus (is it running?)")) return false;
  bus_.reset(bus);
  return done(sd_bus_add_object(bus, nullptr, platform::kWakeUpObject, onRequest, this),
              "offer the wake-up object") &&
         done(sd_bus_attach_event(bus, event, SD_EVENT_PRIORITY_NORMAL), "watch the bus") &&
         done(sd_bus_set_exit_on_disconnect(bus, 1), "watch for the end of the bus") &&
         done(sd_bus_request_name(bus, platform::kWakeUpService, 0),
              "own the name com.kelm.KelmWoLServices (does the bus policy allow it? is another"
              " instance running?)");
}

bool Service::addSources() {
  sd_event* event = event_.get();
  idleTimer_ = startTimer(kIdle, onIdle, this);
  return done(sd_event_add_signal(event, nullptr, SIGTERM, onEnd, this), "watch SIGTERM") &&
         done(sd_event_add_signal(event, nullptr, SIGINT, onEnd, this), "watch SIGINT");
}

Service::Source Service::startTimer(std::chrono::milliseconds delay,
                                    sd_event_time_handler_t handler, void* data) {
  sd_event_source* source = nullptr;
  done(sd_event_add_time_relative(event_.get(), &source, CLOCK_MONOTONIC, microseconds(delay),
                                  kTimerAccuracy, handler, data),
       "set a timer");
  return Source(source);
}

// The process is killed when its event source is released. If there is no process, packets are
// still sent, and the caller is called back at the limit.
Service::Source Service::startProcess(const std::function<bool()>& work,
                                      sd_event_child_handler_t ended, WakeUp& wakeUp) {
  sd_event_source* source = nullptr;
  const pid_t process = fork(work);
  if (!done(process, "start a process")) return nullptr;
  if (!done(sd_event_add_child(event_.get(), &source, process, WEXITED, ended, &wakeUp),
            "watch a process")) {
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    return nullptr;
  }
  sd_event_source_set_child_process_own(source, 1);
  return Source(source);
}

int Service::onRequest(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
  if (!isWakeUpRequest(message)) return 0;
  auto& service = *static_cast<Service*>(self);
  WakeUpArguments arguments;
  const int status = readArguments(message, arguments);
  if (status < 0) {
    service.refuse(callerOf(message), "its arguments are not five strings");
    return status;
  }
  service.take(callerOf(message), arguments);
  return sd_bus_reply_method_return(message, "");
}

void Service::take(const std::string& caller, const WakeUpArguments& arguments) {
  std::string problem;
  const std::optional<WakeUpOrder> order = checkedOrder(arguments, problem);
  if (!order) {
    refuse(caller, problem);
  } else if (requestsOf(caller) >= kMaxRequestsOfCaller) {
    turnAway(caller, *order, "too many printers are being woken for the same caller");
  } else if (join(caller, *order)) {
    say("waking " + order->address + " for " + caller + " too");
  } else if (wakeUps_.size() >= kMaxWakeUps) {
    turnAway(caller, *order, "too many printers are being woken");
  } else {
    begin(caller, *order);
  }
}

void Service::refuse(const std::string& caller, const std::string& reason) {
  say("refused a request from " + caller + ": " + reason);
  tellRefusal(caller, reason);
  callBack(caller);
}

// The packets are sent anyway, because they may wake the printer and need no process. Names are not
// looked up, because that would need a process.
void Service::turnAway(const std::string& caller, const WakeUpOrder& order,
                       const std::string& reason) {
  const auto printer = order.isOverRouter ? numericAddress(order.address) : std::nullopt;
  const MagicPacket packet = magicPacket(order.macAddress);
  for (int count = 0; order.isWakeOnLan && count < kPacketsAtOnce; ++count) {
    broadcastPacket(packet);
    if (printer) sendPacket(packet, *printer);
  }
  refuse(caller, reason);
}

bool Service::join(const std::string& caller, const WakeUpOrder& order) {
  const auto equal = std::ranges::find(wakeUps_, order, &WakeUp::order);
  if (equal == wakeUps_.end()) return false;
  equal->callers.push_back(caller);
  return true;
}

std::size_t Service::requestsOf(const std::string& caller) const {
  std::ptrdiff_t count = 0;
  for (const WakeUp& each : wakeUps_) count += std::ranges::count(each.callers, caller);
  return static_cast<std::size_t>(count);
}

void Service::begin(const std::string& caller, const WakeUpOrder& order) {
  say("waking " + order.address + " for " + caller);
  idleTimer_.reset();
  wakeUps_.push_back({.service = this,
                      .callers = {caller},
                      .order = order,
                      .packet = magicPacket(order.macAddress),
                      .start = now(event_.get()),
                      .packetTimer = nullptr,
                      .limitTimer = nullptr,
                      .asker = nullptr,
                      .sender = nullptr});
  WakeUp& wakeUp = wakeUps_.back();
  wakeUp.limitTimer = startTimer(kLimit, onLimit, &wakeUp);
  wakeUp.asker = startProcess(
      [&] {
        const auto address = findPrinter(order.address);
        if (!address) return false;
        askUntilAnswered([&] { return answers_(*address, order.snmpCommunity); }, kAskInterval);
        return true;
      },
      onAskerEnd, wakeUp);
  if (!order.isWakeOnLan) return;
  wakeUp.packetTimer = startTimer(0ms, onPacketDue, &wakeUp);
  if (!order.isOverRouter) return;
  wakeUp.sender = startProcess(
      [&] {
        sendToPrinter(wakeUp.packet, order.address, packetsWithin(kLimit));
        return true;
      },
      onSenderEnd, wakeUp);
}

int Service::onPacketDue(sd_event_source* /*source*/, std::uint64_t /*time*/, void* wakeUp) {
  auto& self = *static_cast<WakeUp*>(wakeUp);
  self.service->sendPackets(self);
  return 0;
}

void Service::sendPackets(WakeUp& wakeUp) {
  broadcastPacket(wakeUp.packet);
  ++wakeUp.packetsSent;
  sd_event_source* timer = wakeUp.packetTimer.get();
  sd_event_source_set_time(timer, wakeUp.start + microseconds(packetDue(wakeUp.packetsSent)));
  sd_event_source_set_enabled(timer, SD_EVENT_ONESHOT);
}

int Service::onAskerEnd(sd_event_source* /*source*/, const siginfo_t* end, void* wakeUp) {
  auto& self = *static_cast<WakeUp*>(wakeUp);
  if (end->si_code == CLD_EXITED && end->si_status == 0) {
    self.service->finish(self, "answers");
  } else if (end->si_code == CLD_EXITED) {
    for (const std::string& caller : self.callers) {
      self.service->tellRefusal(caller, "no printer can have the address of " + self.order.address);
    }
    self.service->finish(self, "has an address that no printer can have: ended");
  } else {
    say(self.order.address + " cannot be asked any more: the asking process was killed");
  }
  return 0;
}

// All packets are sent; the limit is near.
int Service::onSenderEnd(sd_event_source* /*source*/, const siginfo_t* /*end*/, void* /*wakeUp*/) {
  return 0;
}

int Service::onLimit(sd_event_source* /*source*/, std::uint64_t /*time*/, void* wakeUp) {
  auto& self = *static_cast<WakeUp*>(wakeUp);
  self.service->finish(self, "does not answer");
  return 0;
}

void Service::finish(WakeUp& wakeUp, const char* outcome) {
  const std::uint64_t seconds = (now(event_.get()) - wakeUp.start) / microseconds(1s);
  say(wakeUp.order.address + " " + outcome + " after " + std::to_string(seconds) + " s");
  for (const std::string& caller : wakeUp.callers) callBack(caller);
  wakeUps_.remove_if([&](const WakeUp& each) { return &each == &wakeUp; });
  if (wakeUps_.empty()) idleTimer_ = startTimer(kIdle, onIdle, this);
}

void Service::callBack(const std::string& caller) const {
  sd_bus_message* message = nullptr;
  if (sd_bus_message_new_method_call(bus_.get(), &message, caller.c_str(),
                                     platform::kCallBackObject, platform::kCallBackInterface,
                                     platform::kCallBackMethod) >= 0) {
    send(message);
  }
  sd_bus_message_unref(message);
}

void Service::tellRefusal(const std::string& caller, const std::string& reason) const {
  sd_bus_message* message = nullptr;
  if (sd_bus_message_new_method_call(bus_.get(), &message, caller.c_str(),
                                     platform::kCallBackObject, platform::kRefusalInterface,
                                     platform::kRefusalMethod) >= 0 &&
      sd_bus_message_append(message, "s", reason.c_str()) >= 0) {
    send(message);
  }
  sd_bus_message_unref(message);
}

// No reply to a call-back is expected, and it is not an error if the caller has left the bus.
void Service::send(sd_bus_message* message) const {
  sd_bus_message_set_expect_reply(message, 0);
  sd_bus_send(bus_.get(), message, nullptr);
}

// The bus is closed when the event loop ends, so all waiting callers must be called back before
// that.
int Service::onEnd(sd_event_source* /*source*/, const signalfd_siginfo* /*signal*/, void* self) {
  const auto& service = *static_cast<Service*>(self);
  for (const WakeUp& each : service.wakeUps_) {
    for (const std::string& caller : each.callers) {
      service.tellRefusal(caller, "the service is ending");
      service.callBack(caller);
    }
  }
  sd_bus_flush(service.bus_.get());
  return sd_event_exit(service.event_.get(), 0);
}

int Service::onIdle(sd_event_source* /*source*/, std::uint64_t /*time*/, void* self) {
  static_cast<Service*>(self)->leaveWhenIdle();
  return 0;
}

// Once the name is released, no further request arrives, and the bus starts the service again for
// the next one (with systemd, after this one has ended). Earlier requests are still served.
void Service::leaveWhenIdle() {
  sd_notify(0, "STOPPING=1");
  sd_bus_release_name(bus_.get(), platform::kWakeUpService);
  while (sd_bus_process(bus_.get(), nullptr) > 0) {
  }
  if (wakeUps_.empty()) {
    sd_event_exit(event_.get(), 0);
  } else {
    sd_bus_request_name(bus_.get(), platform::kWakeUpService, 0);
  }
}

}  // namespace kelm::wolservice
