// A request as it arrives on the bus.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <systemd/sd-bus.h>

#include <string>

#include "wolservice/wake_up_order.hpp"

namespace kelm::wolservice {

// Whether the message calls the wake-up method.
bool isWakeUpRequest(sd_bus_message* message);

// The caller's unique name; empty on a connection without a bus.
std::string callerOf(sd_bus_message* message);

// Reads the request's arguments: 0, or a negative errno when they are not five strings.
int readArguments(sd_bus_message* message, WakeUpArguments& arguments);

}  // namespace kelm::wolservice
