// Choices that the PPD's constraints forbid together.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "explain/remark.hpp"
#include "explain/request.hpp"

namespace kelm::explain {

// The PPD's constraints: choices that cannot be used together. Two options can choose the same
// thing under several names; each pair of options is named once.
void addConflicts(const Request& request, std::vector<Remark>& remarks);

}  // namespace kelm::explain
