// The connection to the wake-up service on macOS: XPC. A request and a call-back are dictionaries
// that name their operation and carry its arguments (docs/macos.md).
// SPDX-License-Identifier: Apache-2.0
#include <dispatch/dispatch.h>
#include <xpc/xpc.h>

#include <atomic>
#include <mutex>
#include <string_view>
#include <utility>

#include "platform/macos/macos_platform.hpp"
#include "platform/wake_up_names.hpp"

namespace kelm::platform::macos_platform {
namespace {

constexpr char kOperation[] = "operation";
constexpr char kArguments[] = "arguments";

struct Release {
  void operator()(xpc_object_t object) const { xpc_release(object); }
};
using Object = std::unique_ptr<std::remove_pointer_t<xpc_object_t>, Release>;

void append(const Object& array, const std::optional<std::string>& text) {
  const Object value(text ? xpc_string_create(text->c_str()) : xpc_null_create());
  xpc_array_append_value(array.get(), value.get());
}

Object messageOf(const WakeUpRequest& request) {
  const Object arguments(xpc_array_create(nullptr, 0));
  append(arguments, request.address);
  append(arguments, request.macAddress);
  append(arguments, request.snmpCommunity);
  append(arguments, request.isWakeOnLan);
  append(arguments, request.isOverRouter);
  Object message(xpc_dictionary_create(nullptr, nullptr, 0));
  xpc_dictionary_set_string(message.get(), kOperation, kWakeUpMethod);
  xpc_dictionary_set_value(message.get(), kArguments, arguments.get());
  return message;
}

// Each connection has its own queue, on which all of its events are handled, one after the other.
class XpcConnection final : public WakeUpConnection {
 public:
  XpcConnection(const WakeUpRequest& request, std::function<void()> finished)
      : finished_(std::move(finished)),
        queue_(dispatch_queue_create(kCallBackInterface, nullptr)),
        connection_(xpc_connection_create_mach_service(kWakeUpService, queue_, 0)) {
    xpc_connection_set_event_handler(connection_, ^(xpc_object_t event) {
      handle(event);
    });
    xpc_connection_resume(connection_);
    xpc_connection_send_message(connection_, messageOf(request).get());
  }

  // The cancelled connection reports its end as its last event. After that one, no other can come.
  ~XpcConnection() override {
    xpc_connection_cancel(connection_);
    dispatch_semaphore_wait(ended_, DISPATCH_TIME_FOREVER);
    dispatch_sync_f(queue_, nullptr, [](void* /*nothing*/) {});
    xpc_release(connection_);
    dispatch_release(queue_);
    dispatch_release(ended_);
  }

  XpcConnection(const XpcConnection&) = delete;
  XpcConnection& operator=(const XpcConnection&) = delete;

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
  void handle(xpc_object_t event) {
    const xpc_type_t type = xpc_get_type(event);
    if (type == XPC_TYPE_DICTIONARY) handleCall(event);
    if (type != XPC_TYPE_ERROR) return;
    const char* reason = xpc_dictionary_get_string(event, XPC_ERROR_KEY_DESCRIPTION);
    giveUp(std::string("lost the wake-up service: ") + (reason != nullptr ? reason : ""));
    if (event == XPC_ERROR_CONNECTION_INVALID) dispatch_semaphore_signal(ended_);
  }

  void handleCall(xpc_object_t call) {
    const char* operation = xpc_dictionary_get_string(call, kOperation);
    const std::string_view name = operation != nullptr ? operation : "";
    if (name == kRefusalMethod) {
      xpc_object_t arguments = xpc_dictionary_get_array(call, kArguments);
      const char* reason = arguments != nullptr ? xpc_array_get_string(arguments, 0) : nullptr;
      takeRefusal(reason != nullptr ? reason : "");
    } else if (name == kCallBackMethod && open_) {
      finished_();
    }
  }

  void takeRefusal(const std::string& reason) {
    {
      const std::lock_guard lock(mutex_);
      if (refusal_.empty()) refusal_ = reason;
    }
    giveUp("the wake-up service refused: " + reason);
  }

  // Keeps the first reason; later ones only follow from it.
  void giveUp(const std::string& reason) {
    const std::lock_guard lock(mutex_);
    if (open_) failure_ = reason;
    open_ = false;
  }

  std::function<void()> finished_;
  std::atomic<bool> open_ = true;
  mutable std::mutex mutex_;
  std::string failure_;
  std::string refusal_;
  dispatch_semaphore_t ended_ = dispatch_semaphore_create(0);
  dispatch_queue_t queue_;
  xpc_connection_t connection_;
};

}  // namespace

std::unique_ptr<WakeUpConnection> MacosWakeUpBus::send(const WakeUpRequest& request,
                                                       std::function<void()> finished) {
  return std::make_unique<XpcConnection>(request, std::move(finished));
}

}  // namespace kelm::platform::macos_platform
