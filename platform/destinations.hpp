// The print queues that CUPS offers.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/cups.h>

#include <span>

namespace kelm::platform {

class Destinations {
 public:
  virtual ~Destinations() = default;

  // All destinations with their options (cupsGetDests); empty when there are none or CUPS does not
  // answer within 10 seconds. Valid until the process ends.
  virtual std::span<cups_dest_t> list() = 0;
};

}  // namespace kelm::platform
