// The queues: libcups asks cupsd.
// SPDX-License-Identifier: Apache-2.0
#include <chrono>

#include "platform/posix/bounded_call.hpp"
#include "platform/posix/posix_platform.hpp"

namespace kelm::platform::posix_platform {
namespace {

using List = std::span<cups_dest_t>;

constexpr std::chrono::seconds kAnswerLimit{10};

List askCups() {
  cups_dest_t* destinations = nullptr;
  const int count = cupsGetDests(&destinations);
  if (count < 1) return {};
  return {destinations, static_cast<std::size_t>(count)};
}

}  // namespace

// libcups also asks the mDNS daemon over the bus, without a limit, and either may hang. The list is
// kept until the process ends.
List PosixDestinations::list() {
  static List kept;
  kept = resultBefore(std::chrono::steady_clock::now() + kAnswerLimit, askCups).value_or(List{});
  return kept;
}

}  // namespace kelm::platform::posix_platform
