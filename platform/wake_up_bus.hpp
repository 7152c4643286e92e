// The connection to the wake-up service (docs/wake-up-bus.md).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace kelm::platform {

// The arguments of a request, in their order; all text is UTF-8.
struct WakeUpRequest {
  std::optional<std::string> address;  // of the printer; absent when unknown
  std::string macAddress;
  std::string snmpCommunity;
  std::string isWakeOnLan;   // "YES" or "NO"
  std::string isOverRouter;  // "YES" or "NO"
};

// The connection on which a request was sent. The call-back can arrive as long as the object
// exists; after its destruction, no call-back is running or will run.
class WakeUpConnection {
 public:
  virtual ~WakeUpConnection() = default;

  // False when no call-back can come: the bus is missing or refuses, or the service cannot be
  // started or refuses the request. May change from true to false at any time.
  virtual bool isOpen() const = 0;

  // Why the connection is not open, for an administrator; empty while it is.
  virtual std::string failure() const = 0;

  // Why the service refused the request, in its own words; empty when it did not.
  virtual std::string refusal() const = 0;
};

class WakeUpBus {
 public:
  virtual ~WakeUpBus() = default;

  // Sends `request` to the service, starting it when it is not running, without waiting for a
  // result. An unknown service closes the connection at once. `finished` is called on another
  // thread each time the service calls back, possibly before send returns; it must not throw.
  // Never null.
  virtual std::unique_ptr<WakeUpConnection> send(const WakeUpRequest& request,
                                                 std::function<void()> finished) = 0;
};

}  // namespace kelm::platform
