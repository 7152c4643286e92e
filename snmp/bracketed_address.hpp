// Brackets around IPv6 addresses, for the SNMP library.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::snmp {

// `address`, with brackets added to an IPv6 address that has none: without them the library reads
// the port as one more group of the address (docs/printer-mib.md).
inline std::string bracketed(const std::string& address) {
  const bool plainIPv6 = address.find(':') != std::string::npos && !address.starts_with('[');
  return plainIPv6 ? "[" + address + "]" : address;
}

// `address` without the brackets around it, if any.
inline std::string unbracketed(const std::string& address) {
  const bool bracketed = address.starts_with('[') && address.ends_with(']');
  return bracketed ? address.substr(1, address.size() - 2) : address;
}

}  // namespace kelm::snmp
