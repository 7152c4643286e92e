// Work on one printer that may wait for seconds.
// SPDX-License-Identifier: Apache-2.0
#include "wolservice/printer_work.hpp"

#include <thread>

#include "wolservice/network.hpp"

namespace kelm::wolservice {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kPauseBetweenLookups{1};

// Waits for name servers until they know the host.
sockaddr_storage addressOf(const std::string& host) {
  std::optional<sockaddr_storage> address = locate(host);
  while (!address) {
    std::this_thread::sleep_for(kPauseBetweenLookups);
    address = locate(host);
  }
  return *address;
}

}  // namespace

std::optional<std::string> findPrinter(const std::string& host) {
  const sockaddr_storage address = addressOf(host);
  if (!canBeAPrinter(address)) return std::nullopt;
  return numericText(address);
}

void askUntilAnswered(const std::function<bool()>& answers, std::chrono::milliseconds interval) {
  Clock::time_point due = Clock::now();
  while (!answers()) {
    std::this_thread::sleep_until(due + interval);
    due = Clock::now();
  }
}

void sendWhenDue(const std::function<void()>& send, int packets) {
  const Clock::time_point start = Clock::now();
  for (int number = 0; number < packets; ++number) {
    std::this_thread::sleep_until(start + packetDue(number));
    send();
  }
}

void sendToPrinter(const MagicPacket& packet, const std::string& host, int packets) {
  const sockaddr_storage address = addressOf(host);
  if (!canBeAPrinter(address)) return;
  sendWhenDue([&] { sendPacket(packet, address); }, packets);
}

}  // namespace kelm::wolservice
