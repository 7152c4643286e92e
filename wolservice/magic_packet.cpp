// The magic packet.
// SPDX-License-Identifier: Apache-2.0
#include "wolservice/magic_packet.hpp"

#include <algorithm>

namespace kelm::wolservice {

MagicPacket magicPacket(const base::MacAddress& macAddress) {
  constexpr std::size_t kLead = 6;
  MagicPacket packet{};
  std::fill_n(packet.begin(), kLead, std::uint8_t{0xFF});
  for (auto at = packet.begin() + kLead; at != packet.end();) {
    at = std::copy(macAddress.begin(), macAddress.end(), at);
  }
  return packet;
}

}  // namespace kelm::wolservice
