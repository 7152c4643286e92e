// wake_up_caller REQUEST... : one caller of the wake-up service with several requests, each
// "ADDRESS ON" (ON is YES or NO: whether to send magic packets). It prints the service's answers
// until it is stopped.
// SPDX-License-Identifier: Apache-2.0
#include <systemd/sd-bus.h>

#include <cstdint>
#include <cstdio>
#include <sstream>
#include <string>

#include "platform/wake_up_names.hpp"

namespace {

using namespace kelm::platform;

int onMessage(sd_bus_message* message, void* /*data*/, sd_bus_error* /*error*/) {
  const char* reason = nullptr;
  if (sd_bus_message_is_method_call(message, kRefusalInterface, kRefusalMethod) > 0 &&
      sd_bus_message_read(message, "s", &reason) >= 0) {
    std::printf("refused: %s\n", reason);
  } else if (sd_bus_message_is_method_call(message, kCallBackInterface, kCallBackMethod) > 0) {
    std::printf("called back\n");
  } else {
    return 0;
  }
  std::fflush(stdout);
  return 1;
}

bool request(sd_bus* bus, const std::string& text) {
  std::istringstream words(text);
  std::string address;
  std::string on;
  words >> address >> on;
  sd_bus_message* message = nullptr;
  const bool sent = sd_bus_message_new_method_call(bus, &message, kWakeUpService, kWakeUpObject,
                                                   kWakeUpInterface, kWakeUpMethod) >= 0 &&
                    sd_bus_message_append(message, "sssss", address.c_str(), "00:80:92:12:34:56",
                                          "public", on.c_str(), "NO") >= 0 &&
                    sd_bus_message_set_expect_reply(message, 0) >= 0 &&
                    sd_bus_send(bus, message, nullptr) >= 0;
  sd_bus_message_unref(message);
  return sent;
}

}  // namespace

int main(int argc, char* argv[]) {
  sd_bus* bus = nullptr;
  if (sd_bus_open_system(&bus) < 0 ||
      sd_bus_add_object(bus, nullptr, kCallBackObject, onMessage, nullptr) < 0) {
    return 1;
  }
  for (int i = 1; i < argc; ++i) {
    if (!request(bus, argv[i])) return 1;
  }
  for (;;) {
    const int status = sd_bus_process(bus, nullptr);
    if (status < 0) return 1;
    if (status == 0) sd_bus_wait(bus, UINT64_MAX);
  }
}
