// What is wrong with a job's media-col.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "explain/remark.hpp"
#include "explain/request.hpp"

namespace kelm::explain {

// On the members that have no effect, or on a media-col without any member: cupsd ignores both
// without a message. Without a PPD, sizes and names are not judged. The request's choices must be
// marked in its PPD.
std::vector<Remark> remarksOnMediaCol(const Request& request);

}  // namespace kelm::explain
