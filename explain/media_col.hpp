// What is wrong with a job's media-col.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

#include "explain/remark.hpp"
#include "explain/request.hpp"

namespace kelm::explain {

// The first member that asks for nothing, or that there is none. cupsd drops those without a word.
std::optional<Remark> remarkOnMediaCol(const Request& request);

}  // namespace kelm::explain
