// Host name resolution.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace kelm::platform {

using Ipv4Address = std::array<std::uint8_t, 4>;  // in network byte order

class NameLookup {
 public:
  virtual ~NameLookup() = default;

  // The first IPv4 address of `host` (a name, or an address in dotted form), in the resolver's own
  // order; nothing when the name is unknown, has no such address, or the resolver fails. Waits at
  // most 30 seconds for name servers.
  virtual std::optional<Ipv4Address> firstIpv4(const std::string& host) = 0;
};

}  // namespace kelm::platform
