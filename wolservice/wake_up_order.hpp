// A checked request to the service.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include "base/mac_address.hpp"

namespace kelm::wolservice {

// The arguments as they arrive on the bus, UTF-8 of any length.
struct WakeUpArguments {
  std::string address;
  std::string macAddress;
  std::string snmpCommunity;
  std::string isWakeOnLan;
  std::string isOverRouter;
};

struct WakeUpOrder {
  std::string address;  // IPv4, IPv6 (with a zone or without) or a host name
  base::MacAddress macAddress;
  std::string snmpCommunity;
  bool isWakeOnLan;   // send magic packets
  bool isOverRouter;  // to the printer's own address too

  bool operator==(const WakeUpOrder&) const = default;
};

// The order that the arguments give: a MAC address (base::macAddressOf) that is not all zero; an
// address that a printer can have, or a host name; a community of at most 255 bytes; "YES" or "NO"
// twice. Nothing otherwise, and `problem` says what is wrong, without the arguments' text.
std::optional<WakeUpOrder> checkedOrder(const WakeUpArguments& arguments, std::string& problem);

}  // namespace kelm::wolservice
