// The network: the broadcast addresses of this machine, and one printer.
// SPDX-License-Identifier: Apache-2.0
#include "wolservice/network.hpp"

#include <fcntl.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netdb.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <memory>

namespace kelm::wolservice {
namespace {

// Owns a UDP socket.
class Socket {
 public:
  explicit Socket(int family) : descriptor_(socket(family, SOCK_DGRAM, 0)) {
    fcntl(descriptor_, F_SETFD, FD_CLOEXEC);
  }
  ~Socket() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;
  int get() const { return descriptor_; }

 private:
  int descriptor_;
};

in_addr ipv4Of(const sockaddr* address) {
  sockaddr_in ipv4{};
  if (address != nullptr && address->sa_family == AF_INET) {
    std::memcpy(&ipv4, address, sizeof ipv4);
  }
  return ipv4.sin_addr;
}

bool canBroadcast(const ifaddrs& each) {
  constexpr unsigned int kWanted = IFF_UP | IFF_BROADCAST;
  return (each.ifa_flags & kWanted) == kWanted && each.ifa_addr != nullptr &&
         each.ifa_addr->sa_family == AF_INET;
}

// Sends through this interface, because two may be in the same network.
void sendOn(int socket, MagicPacket packet, const Broadcast& to) {
  sockaddr_in target{};
  target.sin_family = AF_INET;
  target.sin_port = htons(kMagicPort);
  target.sin_addr = to.address;
  in_pktinfo via{};
  via.ipi_ifindex = static_cast<decltype(via.ipi_ifindex)>(to.interface);
  iovec content{packet.data(), packet.size()};
  alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof via)> control{};
  msghdr message{};
  message.msg_name = &target;
  message.msg_namelen = sizeof target;
  message.msg_iov = &content;
  message.msg_iovlen = 1;
  message.msg_control = control.data();
  message.msg_controllen = control.size();
  cmsghdr* header = CMSG_FIRSTHDR(&message);
  header->cmsg_level = IPPROTO_IP;
  header->cmsg_type = IP_PKTINFO;
  header->cmsg_len = CMSG_LEN(sizeof via);
  std::memcpy(CMSG_DATA(header), &via, sizeof via);
  sendmsg(socket, &message, 0);
}

bool isLoopback(in_addr ipv4) { return ntohl(ipv4.s_addr) >> 24 == IN_LOOPBACKNET; }

bool canBeAPrinter(in_addr ipv4) {
  const in_addr_t address = ntohl(ipv4.s_addr);
  constexpr in_addr_t kThisNetwork = 0x00;
  return address >> 24 != kThisNetwork && !isLoopback(ipv4) && !IN_MULTICAST(address) &&
         address != INADDR_BROADCAST;
}

bool holdsIpv4(const in6_addr& address) {
  return IN6_IS_ADDR_V4MAPPED(&address) || IN6_IS_ADDR_V4COMPAT(&address);
}

in_addr heldIpv4(const in6_addr& address) {
  in_addr ipv4{};
  std::memcpy(&ipv4, &address.s6_addr[12], sizeof ipv4);
  return ipv4;
}

bool isLoopback(const in6_addr& address) {
  return holdsIpv4(address) ? isLoopback(heldIpv4(address)) : IN6_IS_ADDR_LOOPBACK(&address);
}

bool canBeAPrinter(const in6_addr& address) {
  if (holdsIpv4(address)) return canBeAPrinter(heldIpv4(address));
  return !IN6_IS_ADDR_UNSPECIFIED(&address) && !isLoopback(address) &&
         !IN6_IS_ADDR_MULTICAST(&address);
}

// Without its zone, which may not exist on this machine.
std::optional<sockaddr_storage> numericAddressWithoutZone(const std::string& address) {
  return numericAddress(address.substr(0, address.find('%')));
}

// The first IPv4 address that getaddrinfo finds with these flags, else the first one.
std::optional<sockaddr_storage> addressOf(const std::string& host, int flags) {
  addrinfo wanted{};
  wanted.ai_flags = flags;
  wanted.ai_socktype = SOCK_DGRAM;
  addrinfo* first = nullptr;
  if (getaddrinfo(host.c_str(), std::to_string(kMagicPort).c_str(), &wanted, &first) != 0) {
    return std::nullopt;
  }
  const std::unique_ptr<addrinfo, void (*)(addrinfo*)> owner(first, freeaddrinfo);
  const addrinfo* chosen = first;
  while (chosen != nullptr && chosen->ai_family != AF_INET) chosen = chosen->ai_next;
  if (chosen == nullptr) chosen = first;
  sockaddr_storage address{};
  std::memcpy(&address, chosen->ai_addr, chosen->ai_addrlen);
  return address;
}

socklen_t sizeOf(const sockaddr_storage& address) {
  return address.ss_family == AF_INET6 ? sizeof(sockaddr_in6) : sizeof(sockaddr_in);
}

}  // namespace

std::optional<in_addr> broadcastOf(in_addr address, in_addr mask, in_addr configured) {
  if (configured.s_addr != 0 && configured.s_addr != address.s_addr) return configured;
  constexpr in_addr_t kFewestHostBits = 3;
  if (ntohl(~mask.s_addr) < kFewestHostBits) return std::nullopt;
  return in_addr{address.s_addr | ~mask.s_addr};
}

std::vector<Broadcast> broadcastAddresses() {
  std::vector<Broadcast> found;
  ifaddrs* first = nullptr;
  if (getifaddrs(&first) != 0) return found;
  const std::unique_ptr<ifaddrs, void (*)(ifaddrs*)> owner(first, freeifaddrs);
  for (const ifaddrs* each = first; each != nullptr; each = each->ifa_next) {
    if (!canBroadcast(*each)) continue;
    const auto address =
        broadcastOf(ipv4Of(each->ifa_addr), ipv4Of(each->ifa_netmask), ipv4Of(each->ifa_broadaddr));
    if (address) found.push_back({if_nametoindex(each->ifa_name), *address});
  }
  return found;
}

bool canBeAPrinter(const sockaddr_storage& address) {
  if (address.ss_family == AF_INET) {
    sockaddr_in ipv4{};
    std::memcpy(&ipv4, &address, sizeof ipv4);
    return canBeAPrinter(ipv4.sin_addr);
  }
  sockaddr_in6 ipv6{};
  std::memcpy(&ipv6, &address, sizeof ipv6);
  return address.ss_family == AF_INET6 && canBeAPrinter(ipv6.sin6_addr);
}

std::optional<sockaddr_storage> numericAddress(const std::string& address) {
  return addressOf(address, AI_NUMERICHOST);
}

bool mayBeAPrinter(const std::string& address) {
  const auto numeric = numericAddressWithoutZone(address);
  return !numeric || canBeAPrinter(*numeric);
}

bool isLoopback(const std::string& address) {
  const auto numeric = numericAddressWithoutZone(address);
  if (!numeric) return false;
  sockaddr_in ipv4{};
  sockaddr_in6 ipv6{};
  std::memcpy(&ipv4, &*numeric, sizeof ipv4);
  std::memcpy(&ipv6, &*numeric, sizeof ipv6);
  return numeric->ss_family == AF_INET ? isLoopback(ipv4.sin_addr) : isLoopback(ipv6.sin6_addr);
}

std::optional<sockaddr_storage> locate(const std::string& host) { return addressOf(host, 0); }

std::string numericText(const sockaddr_storage& address) {
  std::array<char, NI_MAXHOST> text{};
  const auto* generic = reinterpret_cast<const sockaddr*>(&address);
  getnameinfo(generic, sizeOf(address), text.data(), text.size(), nullptr, 0, NI_NUMERICHOST);
  return text.data();
}

void sendPacket(const MagicPacket& packet, const sockaddr_storage& printer) {
  const Socket socket(printer.ss_family);
  sendto(socket.get(), packet.data(), packet.size(), 0, reinterpret_cast<const sockaddr*>(&printer),
         sizeOf(printer));
}

void broadcastPacket(const MagicPacket& packet) {
  const Socket socket(AF_INET);
  const int on = 1;
  setsockopt(socket.get(), SOL_SOCKET, SO_BROADCAST, &on, sizeof on);
  for (const Broadcast& each : broadcastAddresses()) sendOn(socket.get(), packet, each);
}

}  // namespace kelm::wolservice
