// The wake-up service on the system bus (docs/wake-up-bus.md).
#pragma once

#include <systemd/sd-bus.h>
#include <systemd/sd-event.h>

#include <chrono>
#include <list>
#include <memory>
#include <string>

#include "wolservice/asker.hpp"
#include "wolservice/finding_queue.hpp"
#include "wolservice/magic_packet.hpp"
#include "wolservice/wake_up_order.hpp"

namespace kelm::wolservice {

// Takes requests from the bus, wakes the printers that they name, and calls each caller back: when
// its printer answers, at once when the arguments are bad, in any case after 60 seconds.
class Service {
 public:
  explicit Service(PrinterQueries queries);
  ~Service();
  Service(const Service&) = delete;
  Service& operator=(const Service&) = delete;

  // Serves until nobody has waited for 10 seconds, or until SIGTERM or SIGINT, which must be
  // blocked in all threads; who still waits is called back. The result is the exit status: 0, or 1
  // when the bus cannot be reached or refuses the service's name, with a message on standard error.
  int run();

 private:
  struct ReleaseEvent {
    void operator()(sd_event* event) const { sd_event_unref(event); }
    void operator()(sd_event_source* source) const { sd_event_source_disable_unref(source); }
    void operator()(sd_bus* bus) const { sd_bus_flush_close_unref(bus); }
  };
  using Timer = std::unique_ptr<sd_event_source, ReleaseEvent>;

  // One printer that is being woken, and who waits for it.
  struct WakeUp {
    Service* service;
    int number;
    std::string caller;  // its unique name on the bus
    WakeUpOrder order;
    MagicPacket packet;
    std::uint64_t start;  // microseconds of the monotonic clock
    std::optional<sockaddr_storage> location;
    int packetsSent = 0;
    Timer packetTimer;
    Timer limitTimer;
  };

  bool openBus();
  bool addSources();
  Timer startTimer(std::chrono::milliseconds delay, sd_event_time_handler_t handler, void* data);

  void take(const std::string& caller, const WakeUpArguments& arguments);
  void begin(const std::string& caller, const WakeUpOrder& order);
  void sendPackets(WakeUp& wakeUp);
  void use(const Finding& finding);
  void finish(const WakeUp& wakeUp, const char* outcome);
  void callBack(const std::string& caller);
  void leaveWhenIdle();

  static int onRequest(sd_bus_message* message, void* self, sd_bus_error* error);
  static int onFindings(sd_event_source* source, int descriptor, std::uint32_t events, void* self);
  static int onPacketDue(sd_event_source* source, std::uint64_t time, void* wakeUp);
  static int onLimit(sd_event_source* source, std::uint64_t time, void* wakeUp);
  static int onIdle(sd_event_source* source, std::uint64_t time, void* self);

  FindingQueue findings_;
  Asker asker_;
  std::unique_ptr<sd_event, ReleaseEvent> event_;
  std::unique_ptr<sd_bus, ReleaseEvent> bus_;
  Timer idleTimer_;
  std::list<WakeUp> wakeUps_;
  int lastNumber_ = 0;
};

}  // namespace kelm::wolservice
