// What is wrong with a job's media-col.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

#include "explain/remark.hpp"
#include "explain/request.hpp"

namespace kelm::explain {

// On the first member that has no effect, or on a media-col without any useful member. cupsd
// ignores both without a message.
std::optional<Remark> remarkOnMediaCol(const Request& request);

}  // namespace kelm::explain
