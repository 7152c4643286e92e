// The network: the broadcast addresses of this machine, and one printer.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <netinet/in.h>
#include <sys/socket.h>

#include <optional>
#include <string>
#include <vector>

#include "wolservice/magic_packet.hpp"

namespace kelm::wolservice {

struct Broadcast {
  unsigned int interface;  // its index
  in_addr address;
};

// The broadcast address of a network, from an address in it and its mask. `configured` wins unless
// it is zero or the address itself, which is what the C library reports when none is configured.
// Nothing for a network without one (one or two addresses). Network byte order.
std::optional<in_addr> broadcastOf(in_addr address, in_addr mask, in_addr configured);

// The IPv4 broadcast addresses of all interfaces that are up; none on an error.
std::vector<Broadcast> broadcastAddresses();

// The socket address for a magic packet to a numeric address, without asking a name server; nothing
// for a host name.
std::optional<sockaddr_storage> numericAddress(const std::string& address);

// The socket address of a host (an address or a name) for a magic packet: its first IPv4 address,
// else its first one. Nothing when it is unknown. May wait for name servers.
std::optional<sockaddr_storage> locate(const std::string& host);

// The address in numbers, with the zone of a link-local one and without the port.
std::string numericText(const sockaddr_storage& address);

// Whether a printer can have this address; its port does not matter. It cannot be a loopback
// address, a multicast group, the unspecified address or the limited broadcast, in either family.
bool canBeAPrinter(const sockaddr_storage& address);

// Whether a printer can have `address`, an address without brackets or a host name. True for every
// host name, because its address is known only after it is looked up.
bool mayBeAPrinter(const std::string& address);

// Whether `address`, an address without brackets, is one of this machine's own loopback.
bool isLoopback(const std::string& address);

// Sends the packet to one address. Errors are ignored: another packet follows.
void sendPacket(const MagicPacket& packet, const sockaddr_storage& printer);

// Sends the packet to every broadcast address. Errors are ignored.
void broadcastPacket(const MagicPacket& packet);

}  // namespace kelm::wolservice
