// The connection to the wake-up service on Linux: the system's D-Bus through sd-bus.
// SPDX-License-Identifier: Apache-2.0
#include <poll.h>
#include <sys/eventfd.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <future>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/linux/linux_platform.hpp"
#include "platform/posix/bounded_call.hpp"
#include "platform/wake_up_names.hpp"

namespace kelm::platform::linux_platform {
namespace {

constexpr char kBusName[] = "org.freedesktop.DBus";
constexpr std::chrono::seconds kBusAnswerLimit{5};
constexpr std::chrono::milliseconds kForEver{-1};

using Clock = std::chrono::steady_clock;
using posix_platform::readyBefore;
using posix_platform::threadWithoutSignals;

struct ReleaseBus {
  void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
  void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Bus = std::unique_ptr<sd_bus, ReleaseBus>;
using Message = std::unique_ptr<sd_bus_message, ReleaseBus>;

// Each connection has its own bus and its own thread, the only one that touches the bus.
class SdBusConnection final : public WakeUpConnection {
 public:
  SdBusConnection(const WakeUpRequest& request, std::function<void()> finished)
      : finished_(std::move(finished)), stop_(eventfd(0, EFD_CLOEXEC)) {
    if (stop_ < 0) {
      giveUp("no file descriptor left for the system bus");
      return;
    }
    const std::future<void> sent = sent_.get_future();
    thread_ = threadWithoutSignals([this, &request] { run(request); });
    if (!thread_.joinable()) {
      giveUp("cannot start a thread for the system bus");
    } else if (!readyBefore(Clock::time_point::max(), sent)) {
      giveUp("the job was cancelled");
      end();
    }
  }

  ~SdBusConnection() override {
    if (stop_ < 0) return;
    end();
    close(stop_);
  }

  SdBusConnection(const SdBusConnection&) = delete;
  SdBusConnection& operator=(const SdBusConnection&) = delete;

  bool isOpen() const override { return open_; }

  std::string failure() const override {
    const std::lock_guard lock(mutex_);
    return failure_;
  }

  std::string refusal() const override {
    const std::lock_guard lock(mutex_);
    return refusal_;
  }

 private:
  // Ends the thread, which checks `stop_` wherever it waits.
  void end() {
    eventfd_write(stop_, 1);
    if (thread_.joinable()) thread_.join();
  }

  void run(const WakeUpRequest& request) {
    const Bus bus = openBus();
    if (bus) sendOn(bus.get(), request);
    sent_.set_value();
    while (open_ && waitForBus(bus.get(), kForEver)) handleMessages(bus.get());
  }

  Bus openBus() {
    sd_bus* bus = nullptr;
    int status = sd_bus_open_system(&bus);
    Bus opened(bus);
    if (status >= 0) status = sd_bus_add_filter(bus, nullptr, noticeError, this);
    if (status >= 0) status = sd_bus_add_object(bus, nullptr, kCallBackObject, callBack, this);
    if (status >= 0) return opened;
    giveUp("cannot reach the system bus", status);
    return nullptr;
  }

  // Handles messages until `done()` or an error, at most kBusAnswerLimit: sd-bus itself would wait
  // for minutes for a peer that accepts the connection and then says nothing, and would not notice
  // the end of the connection. The status is negative in case of an error.
  template <class Done>
  int processUntil(sd_bus* bus, Done done) const {
    const auto end = Clock::now() + kBusAnswerLimit;
    int status = 0;
    while (status >= 0 && !done()) {
      status = sd_bus_process(bus, nullptr);
      if (status != 0) continue;
      const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
      if (left.count() <= 0 || !waitForBus(bus, left)) status = -ETIMEDOUT;
    }
    return status;
  }

  // The bus answers in order: an immediate error about the request arrives before the answer to a
  // later call.
  void sendOn(sd_bus* bus, const WakeUpRequest& request) {
    sd_bus_message* message = nullptr;
    int status = processUntil(bus, [bus] { return sd_bus_is_ready(bus) != 0; });
    if (status >= 0) {
      status = sd_bus_message_new_method_call(bus, &message, kWakeUpService, kWakeUpObject,
                                              kWakeUpInterface, kWakeUpMethod);
    }
    const Message owner(message);
    if (status >= 0) {
      status = sd_bus_message_append(message, "sssss", request.address.value_or("").c_str(),
                                     request.macAddress.c_str(), request.snmpCommunity.c_str(),
                                     request.isWakeOnLan.c_str(), request.isOverRouter.c_str());
    }
    if (status >= 0) status = sd_bus_message_set_expect_reply(message, 0);
    if (status >= 0) status = sd_bus_send(bus, message, &cookie_);
    if (status >= 0) status = askBus(bus);
    if (status < 0) giveUp("cannot send the request", status);
    handleMessages(bus);
  }

  int askBus(sd_bus* bus) {
    answered_ = false;
    const int status = sd_bus_call_method_async(bus, nullptr, kBusName, "/org/freedesktop/DBus",
                                                kBusName, "GetId", takeBusAnswer, this, nullptr);
    return status < 0 ? status : processUntil(bus, [this] { return answered_; });
  }

  static int takeBusAnswer(sd_bus_message* /*answer*/, void* self, sd_bus_error* /*error*/) {
    static_cast<SdBusConnection*>(self)->answered_ = true;
    return 0;
  }

  void handleMessages(sd_bus* bus) {
    int status = 0;
    do {
      status = sd_bus_process(bus, nullptr);
    } while (status > 0);
    if (status < 0) giveUp("lost the system bus", status);
  }

  // Waits until the bus has work or `limit` has passed. False when the connection is to end.
  bool waitForBus(sd_bus* bus, std::chrono::milliseconds limit) const {
    pollfd sources[] = {{stop_, POLLIN, 0}, {sd_bus_get_fd(bus), POLLIN, 0}};
    sources[1].events = static_cast<short>(sd_bus_get_events(bus));
    if (poll(sources, std::size(sources), static_cast<int>(limit.count())) < 0)
      return errno == EINTR;
    return sources[0].revents == 0;
  }

  static int callBack(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
    auto& connection = *static_cast<SdBusConnection*>(self);
    if (sd_bus_message_is_method_call(message, kRefusalInterface, kRefusalMethod) > 0) {
      const char* reason = nullptr;
      if (sd_bus_message_read(message, "s", &reason) < 0) return -EINVAL;
      connection.takeRefusal(reason);
      return sd_bus_reply_method_return(message, "");
    }
    if (sd_bus_message_is_method_call(message, kCallBackInterface, kCallBackMethod) <= 0) return 0;
    if (connection.open_) connection.finished_();
    return sd_bus_reply_method_return(message, "");
  }

  void takeRefusal(const std::string& reason) {
    {
      const std::lock_guard lock(mutex_);
      if (refusal_.empty()) refusal_ = reason;
    }
    giveUp("the wake-up service refused: " + reason);
  }

  // No handler is attached to a request without a reply, but the bus still reports when it could
  // not be delivered.
  static int noticeError(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
    auto& connection = *static_cast<SdBusConnection*>(self);
    std::uint64_t cookie = 0;
    if (sd_bus_message_is_method_error(message, nullptr) > 0 &&
        sd_bus_message_get_reply_cookie(message, &cookie) >= 0 && cookie == connection.cookie_) {
      const sd_bus_error* error = sd_bus_message_get_error(message);
      connection.giveUp(std::string(error->name) + ": " +
                        (error->message != nullptr ? error->message : ""));
    }
    return 0;
  }

  void giveUp(const std::string& what, int status) { giveUp(what + ": " + std::strerror(-status)); }

  // Keeps the first reason; the later ones are its consequences.
  void giveUp(const std::string& reason) {
    const std::lock_guard lock(mutex_);
    if (open_) failure_ = reason;
    open_ = false;
  }

  std::function<void()> finished_;
  int stop_;
  std::atomic<bool> open_ = true;
  mutable std::mutex mutex_;
  std::string failure_;
  std::string refusal_;
  std::uint64_t cookie_ = 0;
  bool answered_ = false;  // the bus, for its own thread
  std::promise<void> sent_;
  std::thread thread_;
};

}  // namespace

std::unique_ptr<WakeUpConnection> LinuxWakeUpBus::send(const WakeUpRequest& request,
                                                       std::function<void()> finished) {
  return std::make_unique<SdBusConnection>(request, std::move(finished));
}

}  // namespace kelm::platform::linux_platform
