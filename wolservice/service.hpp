// The wake-up service on the system bus (docs/wake-up-bus.md).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <systemd/sd-bus.h>
#include <systemd/sd-event.h>

#include <chrono>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "wolservice/magic_packet.hpp"
#include "wolservice/wake_up_order.hpp"

namespace kelm::wolservice {

// Asks a printer once whether it is awake; may take seconds.
using PrinterAnswers = bool (*)(const std::string& address, const std::string& community);

// Takes requests from the bus, wakes their printers, and calls each caller back: when its printer
// answers, or at once when the request is refused, or after 60 seconds. Equal requests share one
// wake-up.
class Service {
 public:
  explicit Service(PrinterAnswers answers) : answers_(answers) {}
  ~Service() = default;
  Service(const Service&) = delete;
  Service& operator=(const Service&) = delete;

  // Serves until there has been no request for 10 seconds, or until SIGTERM or SIGINT. All waiting
  // callers are then called back. The caller must have blocked both signals and SIGCHLD, and must
  // not have started a thread. Returns the exit status: 0, or 1 with a message on standard error if
  // the bus cannot be reached, refuses the service's name or is lost.
  int run();

 private:
  struct ReleaseEvent {
    void operator()(sd_event* event) const { sd_event_unref(event); }
    void operator()(sd_event_source* source) const { sd_event_source_disable_unref(source); }
    void operator()(sd_bus* bus) const { sd_bus_flush_close_unref(bus); }
  };
  using Source = std::unique_ptr<sd_event_source, ReleaseEvent>;

  // A printer that is being woken, and its waiting callers.
  struct WakeUp {
    Service* service;
    std::vector<std::string> callers;  // their unique names on the bus, each once for each request
    WakeUpOrder order;
    MagicPacket packet;
    std::uint64_t start;  // microseconds of the monotonic clock
    int packetsSent = 0;
    Source packetTimer;
    Source limitTimer;
    Source asker;   // a process; it ends when the printer answers
    Source sender;  // a process for the packets to the printer itself
  };

  bool openBus();
  bool addSources();
  Source startTimer(std::chrono::milliseconds delay, sd_event_time_handler_t handler, void* data);
  Source startProcess(const std::function<bool()>& work, sd_event_child_handler_t ended,
                      WakeUp& wakeUp);

  void take(const std::string& caller, const WakeUpArguments& arguments);
  void refuse(const std::string& caller, const std::string& reason);
  void turnAway(const std::string& caller, const WakeUpOrder& order, const std::string& reason);
  bool join(const std::string& caller, const WakeUpOrder& order);
  std::size_t requestsOf(const std::string& caller) const;
  void begin(const std::string& caller, const WakeUpOrder& order);
  void sendPackets(WakeUp& wakeUp);
  void finish(WakeUp& wakeUp, const char* outcome);
  void tellRefusal(const std::string& caller, const std::string& reason) const;
  void callBack(const std::string& caller) const;
  void send(sd_bus_message* message) const;
  void leaveWhenIdle();

  static int onRequest(sd_bus_message* message, void* self, sd_bus_error* error);
  static int onPacketDue(sd_event_source* source, std::uint64_t time, void* wakeUp);
  static int onAskerEnd(sd_event_source* source, const siginfo_t* end, void* wakeUp);
  static int onSenderEnd(sd_event_source* source, const siginfo_t* end, void* wakeUp);
  static int onLimit(sd_event_source* source, std::uint64_t time, void* wakeUp);
  static int onEnd(sd_event_source* source, const signalfd_siginfo* signal, void* self);
  static int onIdle(sd_event_source* source, std::uint64_t time, void* self);

  PrinterAnswers answers_;
  std::unique_ptr<sd_event, ReleaseEvent> event_;
  std::unique_ptr<sd_bus, ReleaseEvent> bus_;
  Source idleTimer_;
  std::list<WakeUp> wakeUps_;
};

}  // namespace kelm::wolservice
