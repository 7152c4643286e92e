// Functions for one printer that may wait for seconds, for the printer or for a name server. The
// service runs each in a process of its own, so that no printer waits for another.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "wolservice/magic_packet.hpp"

namespace kelm::wolservice {

// Calls `answers` until it is true: at most once per `interval`, and again at once when a call took
// longer.
void askUntilAnswered(const std::function<bool()>& answers, std::chrono::milliseconds interval);

// Calls `send` `packets` times, each when its packet is due (packetDue, counted from the start).
void sendWhenDue(const std::function<void()>& send, int packets);

// Looks the host up until it is known. Returns its address in numbers, or nothing if no printer can
// have that address. Requests must go to this address and not to the name, whose address could
// change.
std::optional<std::string> findPrinter(const std::string& host);

// Looks the host up until it is known, then sends it the packet as sendWhenDue does, unless no
// printer can have its address.
void sendToPrinter(const MagicPacket& packet, const std::string& host, int packets);

}  // namespace kelm::wolservice
