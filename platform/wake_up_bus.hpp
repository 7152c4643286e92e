// The way to the service that wakes printers (docs/wake-up-bus.md).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace kelm::platform {

// What the service is asked, in the order of its arguments; all text is UTF-8.
struct WakeUpRequest {
  std::optional<std::string> address;  // of the printer; nothing: unknown
  std::string macAddress;
  std::string snmpCommunity;
  std::string isWakeOnLan;   // "YES" or "NO"
  std::string isOverRouter;  // "YES" or "NO"
};

// The connection on which a request was sent; the call-back comes over it while it lives. Its
// destruction ends it: afterwards no call-back comes, and none is running.
class WakeUpConnection {
 public:
  virtual ~WakeUpConnection() = default;

  // False when no call-back can come: there is no bus or it refuses, or it knows that the service
  // neither runs nor can be started. It may turn from true to false while the connection lives.
  virtual bool isOpen() const = 0;

  // Why the connection is not open, for an administrator; empty while it is.
  virtual std::string failure() const = 0;
};

class WakeUpBus {
 public:
  virtual ~WakeUpBus() = default;

  // Sends `request` to the service, which is started where it does not run, without waiting for a
  // result; an unknown service is known at once. `finished` is called, on another thread, each time
  // that the service calls back, possibly before send returns; it must not throw. Never null.
  virtual std::unique_ptr<WakeUpConnection> send(const WakeUpRequest& request,
                                                 std::function<void()> finished) = 0;
};

}  // namespace kelm::platform
