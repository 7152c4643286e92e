// Host names on Linux: the system resolver. gethostbyname keeps the resolver's order; getaddrinfo
// would sort the addresses again.
// SPDX-License-Identifier: Apache-2.0
#include <netdb.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <vector>

#include "platform/linux/linux_platform.hpp"
#include "platform/posix/bounded_call.hpp"

namespace kelm::platform::linux_platform {
namespace {

constexpr std::size_t kFirstRoom = 1024;
constexpr std::size_t kMostRoom = std::size_t{1024} * 1024;

std::optional<Ipv4Address> firstOf(const hostent& entry) {
  const char* first = entry.h_addr_list[0];
  Ipv4Address address{};
  if (first == nullptr || entry.h_length != static_cast<int>(address.size())) return std::nullopt;
  std::copy_n(first, address.size(), address.begin());
  return address;
}

// Longer than the resolver takes with its usual configuration: three servers, twice 5 seconds each.
constexpr std::chrono::seconds kLookupLimit{30};

// Does not return before the resolver gives up.
std::optional<Ipv4Address> lookUp(const std::string& host) {
  hostent entry{};
  hostent* found = nullptr;
  int problem = 0;
  std::vector<char> room(kFirstRoom);
  while (gethostbyname2_r(host.c_str(), AF_INET, &entry, room.data(), room.size(), &found,
                          &problem) == ERANGE &&
         room.size() < kMostRoom) {
    room.resize(room.size() * 2);
  }
  return found == nullptr ? std::nullopt : firstOf(*found);
}

}  // namespace

std::optional<Ipv4Address> LinuxNameLookup::firstIpv4(const std::string& host) {
  return posix_platform::resultBefore(std::chrono::steady_clock::now() + kLookupLimit,
                                      [host] { return lookUp(host); })
      .value_or(std::nullopt);
}

}  // namespace kelm::platform::linux_platform
