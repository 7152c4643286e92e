// The magic packet, and when it is sent.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>

#include "base/mac_address.hpp"

namespace kelm::wolservice {

inline constexpr std::uint16_t kMagicPort = 9;  // the discard service: nothing answers

// Six bytes 0xFF and sixteen times the MAC address.
using MagicPacket = std::array<std::uint8_t, 102>;
MagicPacket magicPacket(const base::MacAddress& macAddress);

// When packet `number` (from 0) is due, counted from the first: three packets 100 ms apart, in case
// the network loses one, and the same every 5 seconds, in case the printer was just falling asleep.
inline constexpr int kPacketsAtOnce = 3;
constexpr std::chrono::milliseconds packetDue(int number) {
  return std::chrono::seconds(5) * (number / kPacketsAtOnce) +
         std::chrono::milliseconds(100) * (number % kPacketsAtOnce);
}

}  // namespace kelm::wolservice
