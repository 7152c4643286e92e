// An address as the SNMP library reads it rightly.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::snmp {

// `address` with brackets around an IPv6 address that has none: the library takes what follows the
// last colon of such an address for one more group of it, not for the port (docs/printer-mib.md).
inline std::string bracketed(const std::string& address) {
  const bool plainIPv6 = address.find(':') != std::string::npos && !address.starts_with('[');
  return plainIPv6 ? "[" + address + "]" : address;
}

// `address` without brackets around the whole of it.
inline std::string unbracketed(const std::string& address) {
  const bool bracketed = address.starts_with('[') && address.ends_with(']');
  return bracketed ? address.substr(1, address.size() - 2) : address;
}

}  // namespace kelm::snmp
