// What is wrong with a job's options before it is printed.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "explain/remark.hpp"
#include "explain/request.hpp"

namespace kelm::explain {

// In the order of the options. The request's choices must be marked in its PPD (outcomeOf).
std::vector<Remark> remarksOn(const Request& request);

}  // namespace kelm::explain
