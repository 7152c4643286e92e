// The magic packet, and when it is sent.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>

#include "wolservice/wake_up_order.hpp"

namespace kelm::wolservice {

inline constexpr std::uint16_t kMagicPort = 9;  // "discard": nobody else answers it

// Six bytes 0xFF and sixteen times the MAC address.
using MagicPacket = std::array<std::uint8_t, 102>;
MagicPacket magicPacket(const MacAddress& macAddress);

// When packet number `number` (from 0) is due, counted from the first: three at 100 ms, for a
// network that loses one, and again every 5 seconds, for a printer that was still falling asleep.
constexpr std::chrono::milliseconds packetDue(int number) {
  constexpr int kPacketsAtOnce = 3;
  return std::chrono::seconds(5) * (number / kPacketsAtOnce) +
         std::chrono::milliseconds(100) * (number % kPacketsAtOnce);
}

}  // namespace kelm::wolservice
