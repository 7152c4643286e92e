// The queues on Linux: libcups asks the print server.
// SPDX-License-Identifier: Apache-2.0
#include <chrono>

#include "platform/linux/bounded_call.hpp"
#include "platform/linux/network_bodies.hpp"

namespace kelm::platform::linux_bodies {
namespace {

using List = std::span<cups_dest_t>;

constexpr std::chrono::seconds kLongestWait{10};

List askPrintServer() {
  cups_dest_t* destinations = nullptr;
  const int count = cupsGetDests(&destinations);
  if (count < 1) return {};
  return {destinations, static_cast<std::size_t>(count)};
}

}  // namespace

// libcups asks the mDNS daemon too, over the bus and without a limit, and either may hang. The list
// is kept as long as the process.
List LinuxDestinations::list() {
  static List kept;
  kept = resultBefore(std::chrono::steady_clock::now() + kLongestWait, askPrintServer)
             .value_or(List{});
  return kept;
}

}  // namespace kelm::platform::linux_bodies
