// The queues on Linux: libcups asks the print server.
#include "platform/linux/network_bodies.hpp"

namespace kelm::platform::linux_bodies {

// The list is kept for as long as the process lives, which is short.
std::span<cups_dest_t> LinuxDestinations::list() {
  static cups_dest_t* destinations = nullptr;
  const int count = cupsGetDests(&destinations);
  if (count < 1) return {};
  return {destinations, static_cast<std::size_t>(count)};
}

}  // namespace kelm::platform::linux_bodies
