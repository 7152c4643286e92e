// The work at one printer that may wait for seconds, for the printer or for a name server. The
// service runs each piece of it in a process of its own, so that no printer waits for another.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "wolservice/magic_packet.hpp"

namespace kelm::wolservice {

// Asks until the printer answers: one question per `interval` at most, and the next one at once
// when a question took longer.
void askUntilAnswered(const std::function<bool()>& answers, std::chrono::milliseconds interval);

// Calls `send` whenever a packet is due (packetDue), counted from the start, `packets` times.
void sendWhenDue(const std::function<void()>& send, int packets);

// Looks the host up until it is known, then sends it the packet likewise.
void sendToPrinter(const MagicPacket& packet, const std::string& host, int packets);

}  // namespace kelm::wolservice
