// The request to the wake-up service for one printer.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
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

// What is known about the printer of a queue or, when `problem` is not empty, why it cannot be
// woken and what to do.
struct QueuedPrinter {
  std::string queue;  // as the print server writes it if it knows the queue
  std::string deviceUri;
  wakeup::WakeUpSettings settings;
  std::string problem;
};
QueuedPrinter queuedPrinter(PrintServer& server, const std::string& queue);

// For a queue's printer, at the address that jobs get from its device URI
// (wakeup::XPCCallObject::addressOf). Finding that address may take long.
WakePlan wakePlanOf(const QueuedPrinter& printer, const std::optional<std::string>& address);

}  // namespace kelm::ctl
