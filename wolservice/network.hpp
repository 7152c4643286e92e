// The network as the service sees it: the broadcast addresses around it, and one printer.
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

// The broadcast address of a network from an address in it and its mask; `configured` wins unless
// it is zero or the address itself, as the C library reports an interface where none is configured.
// Nothing for a network that has none (one or two addresses). Network byte order.
std::optional<in_addr> broadcastOf(in_addr address, in_addr mask, in_addr configured);

// The IPv4 broadcast addresses of all interfaces that are up; none when the system does not tell.
std::vector<Broadcast> broadcastAddresses();

// The first address of a host (an address or a name), ready to be sent a magic packet; nothing when
// it is not known. May wait for name servers.
std::optional<sockaddr_storage> locate(const std::string& host);

// Sends the packet to one address. A network that takes none loses it: the next one tries again.
void sendPacket(const MagicPacket& packet, const sockaddr_storage& printer);

// Sends the packet to every broadcast address, likewise.
void broadcastPacket(const MagicPacket& packet);

}  // namespace kelm::wolservice
