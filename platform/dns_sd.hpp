// Services that announce themselves on the network: DNS-Based Service Discovery (RFC 6763).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/socket.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace kelm::platform {

// One service instance by its name; nothing is asked before it is resolved.
class DnsSdService {
 public:
  virtual ~DnsSdService() = default;

  // Asks the network for the service's socket addresses, at most `limit` long by the monotonic
  // clock; empty when it does not answer in time or cannot be asked.
  virtual std::vector<sockaddr_storage> resolve(std::chrono::milliseconds limit) = 0;
};

class DnsSd {
 public:
  virtual ~DnsSd() = default;

  // The service `name` (plain UTF-8, not escaped) of `type` ("_pdl-datastream._tcp") in `domain`
  // ("local"); null when these can name no service.
  virtual std::unique_ptr<DnsSdService> create(const std::string& domain, const std::string& type,
                                               const std::string& name) = 0;
};

}  // namespace kelm::platform
