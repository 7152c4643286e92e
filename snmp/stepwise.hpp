// Asks for a list in smaller steps when the printer does not give all of it at once.
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
  bool isSilent = false;  // the printer did not answer even for a few objects
};

// Asks for all `objects` and halves each request that fails, down to single objects. There is no
// list if the printer does not answer, or if more than 10 entries cannot be read: the printer then
// counts as one without the list. `address` has the form that QVSNMPHelper takes.
StepwiseAnswer getStepwise(const char* address, const char* community,
                           std::span<const OidText> objects, ValueKind kind);

}  // namespace kelm::snmp
