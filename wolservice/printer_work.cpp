// The work at one printer that may wait for seconds.
#include "wolservice/printer_work.hpp"

#include <optional>
#include <thread>

#include "wolservice/network.hpp"

namespace kelm::wolservice {
namespace {

using Clock = std::chrono::steady_clock;

}  // namespace

void askUntilAnswered(const std::function<bool()>& answers, std::chrono::milliseconds interval) {
  Clock::time_point due = Clock::now();
  while (!answers()) {
    std::this_thread::sleep_until(due + interval);
    due = Clock::now();
  }
}

void sendToPrinter(const MagicPacket& packet, const std::string& host, int packets) {
  const Clock::time_point start = Clock::now();
  std::optional<sockaddr_storage> address;
  for (int number = 0; number < packets; ++number) {
    std::this_thread::sleep_until(start + packetDue(number));
    if (!address) address = locate(host);
    if (address) sendPacket(packet, *address);
  }
}

}  // namespace kelm::wolservice
