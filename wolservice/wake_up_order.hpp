// What the service is asked to do, once its arguments are checked.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kelm::wolservice {

using MacAddress = std::array<std::uint8_t, 6>;

// The arguments as they come over the bus, UTF-8 and of any length.
struct WakeUpArguments {
  std::string address;
  std::string macAddress;
  std::string snmpCommunity;
  std::string isWakeOnLan;
  std::string isOverRouter;
};

// The address of six hexadecimal parts of one or two digits between ":"; nothing for any other
// text, and for an address that is all zero.
std::optional<MacAddress> macAddressOf(std::string_view text);

struct WakeUpOrder {
  std::string address;  // IPv4, IPv6 (with a zone or without) or a host name
  MacAddress macAddress;
  std::string snmpCommunity;
  bool isWakeOnLan;   // send magic packets
  bool isOverRouter;  // also to the printer's address itself
};

// The order that the arguments give: a MAC address (macAddressOf); an address or host name; a
// community of at most 255 bytes; "YES" or "NO" twice. Nothing otherwise, and `problem` says what
// is wrong, without the arguments' text.
std::optional<WakeUpOrder> checkedOrder(const WakeUpArguments& arguments, std::string& problem);

}  // namespace kelm::wolservice
