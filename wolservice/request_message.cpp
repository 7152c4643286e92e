// A request as it arrives on the bus.
// SPDX-License-Identifier: Apache-2.0
#include "wolservice/request_message.hpp"

#include <cerrno>

#include "platform/wake_up_names.hpp"

namespace kelm::wolservice {

bool isWakeUpRequest(sd_bus_message* message) {
  return sd_bus_message_is_method_call(message, platform::kWakeUpInterface,
                                       platform::kWakeUpMethod) > 0;
}

std::string callerOf(sd_bus_message* message) {
  const char* caller = sd_bus_message_get_sender(message);
  return caller == nullptr ? "" : caller;
}

int readArguments(sd_bus_message* message, WakeUpArguments& arguments) {
  const char* address = nullptr;
  const char* macAddress = nullptr;
  const char* community = nullptr;
  const char* isWakeOnLan = nullptr;
  const char* isOverRouter = nullptr;
  const int status = sd_bus_message_read(message, "sssss", &address, &macAddress, &community,
                                         &isWakeOnLan, &isOverRouter);
  if (status < 0) return status;
  if (sd_bus_message_at_end(message, 1) <= 0) return -EINVAL;
  arguments = {address, macAddress, community, isWakeOnLan, isOverRouter};
  return 0;
}

}  // namespace kelm::wolservice
