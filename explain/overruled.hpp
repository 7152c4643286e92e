// Options that do nothing because another option of the job counts before them.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "explain/remark.hpp"
#include "explain/request.hpp"

namespace kelm::explain {

// Adds a remark for each option that the person gave and that has none yet. The request's choices
// must be marked in its PPD.
void addOverruled(const Request& request, std::vector<Remark>& remarks);

}  // namespace kelm::explain
