// The request to the wake-up service for one printer.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "ctl/print_server.hpp"
#include "platform/platform.hpp"
#include "wakeup/wake_up_settings.hpp"

namespace kelm::ctl {

// The request or, when `problem` is not empty, why there is none and what to do.
struct WakePlan {
  platform::WakeUpRequest request;
  std::string problem;
};

// For the printer with these settings at `address`, with brackets or without.
WakePlan wakePlanOf(const wakeup::WakeUpSettings& settings, const std::string& address);

// For a queue's printer, as its PPD and device URI describe it.
WakePlan wakePlanOf(PrintServer& server, const std::string& queue);

}  // namespace kelm::ctl
