// A list that the printer does not give whole, asked for in smaller steps.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "snmp/oid_tables.hpp"
#include "snmp/response_walk.hpp"

namespace kelm::snmp {

// Entry n at index n; an entry that cannot be read has no value.
using PartialList = std::vector<std::optional<std::string>>;

struct StepwiseAnswer {
  std::optional<PartialList> list;
  bool isSilent = false;  // the printer stayed silent even for a few objects: it is gone
};

// Asks for all `objects` and halves each request that fails, down to single objects. There is no
// list when the printer is silent, or when more than 10 entries cannot be read: it does not have
// the list then. `address` is one that QVSNMPHelper takes.
StepwiseAnswer getStepwise(const char* address, const char* community,
                           std::span<const OidText> objects, ValueKind kind);

}  // namespace kelm::snmp
