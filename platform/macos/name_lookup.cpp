// Host names on macOS: the system resolver. gethostbyname keeps the resolver's order, and its
// answer belongs to the calling thread. getaddrinfo would sort the addresses again.
// SPDX-License-Identifier: Apache-2.0
#include <netdb.h>
#include <sys/socket.h>

#include <algorithm>
#include <chrono>

#include "platform/macos/macos_platform.hpp"
#include "platform/posix/bounded_call.hpp"

namespace kelm::platform::macos_platform {
namespace {

constexpr std::chrono::seconds kLookupLimit{30};

// Does not return before the resolver gives up.
std::optional<Ipv4Address> lookUp(const std::string& host) {
  const hostent* entry = gethostbyname(host.c_str());
  if (entry == nullptr || entry->h_addrtype != AF_INET) return std::nullopt;
  const char* first = entry->h_addr_list[0];
  Ipv4Address address{};
  if (first == nullptr || entry->h_length != static_cast<int>(address.size())) return std::nullopt;
  std::copy_n(first, address.size(), address.begin());
  return address;
}

}  // namespace

std::optional<Ipv4Address> MacosNameLookup::firstIpv4(const std::string& host) {
  return posix_platform::resultBefore(std::chrono::steady_clock::now() + kLookupLimit,
                                      [host] { return lookUp(host); })
      .value_or(std::nullopt);
}

}  // namespace kelm::platform::macos_platform
