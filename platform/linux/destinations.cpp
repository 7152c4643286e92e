// The queues on Linux: libcups asks the print server.
#include <chrono>
#include <future>
#include <system_error>
#include <thread>

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

// libcups asks the mDNS daemon too, over the bus and without a limit: where one of them hangs, its
// thread is left behind and ends with the process. The list is kept as long.
List LinuxDestinations::list() {
  static List kept;
  std::promise<List> promise;
  std::future<List> found = promise.get_future();
  try {
    std::thread([promise = std::move(promise)]() mutable {
      promise.set_value(askPrintServer());
    }).detach();
  } catch (const std::system_error&) {
    return {};
  }
  kept = found.wait_for(kLongestWait) == std::future_status::ready ? found.get() : List();
  return kept;
}

}  // namespace kelm::platform::linux_bodies
