// Services announced on the network by DNS-Based Service Discovery (RFC 6763).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/socket.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace kelm::platform {

// A service instance, known by name only until it is resolved.
class DnsSdService {
 public:
  virtual ~DnsSdService() = default;

  // The service's socket addresses; empty when it does not answer within `limit` (monotonic clock)
  // or cannot be asked.
  virtual std::vector<sockaddr_storage> resolve(std::chrono::milliseconds limit) = 0;
};

class DnsSd {
 public:
  virtual ~DnsSd() = default;

  // The service `name` (plain UTF-8, not escaped) of `type` ("_pdl-datastream._tcp") in `domain`
  // ("local"); null when these cannot name a service.
  virtual std::unique_ptr<DnsSdService> create(const std::string& domain, const std::string& type,
                                               const std::string& name) = 0;
};

}  // namespace kelm::platform
