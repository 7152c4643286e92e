// The input of a wake-up: the facts in the queue's PPD, and the queue's device URI.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <string>

#include "platform/wake_up_bus.hpp"
#include "wakeup/text.hpp"

namespace kelm::wakeup {

struct WakeUpSettings {
  std::string snmpCommunity;
  std::string macAddress;
  bool isWakeOnLan;
  bool isOverRouter;
};

// The settings stored in `ppd`, which may be null.
WakeUpSettings wakeUpSettingsOf(ppd_file_t* ppd);

// The request to wake the printer at `address` with these settings.
platform::WakeUpRequest requestFor(const WakeUpSettings& settings, const Text& address);

// The device URI of the queue `printer` among CUPS' destinations (of the default destination if the
// name is absent): its last option "device-uri". Without such a queue or option, DEVICE_URI from
// the environment (filter(7)), which a print server without destinations sets too. Absent if there
// is neither.
Text deviceUriOf(const Text& printer);

}  // namespace kelm::wakeup
