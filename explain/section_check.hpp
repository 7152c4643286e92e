// Finds feature sections of a stream that disagree with its header.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "explain/header_check.hpp"
#include "explain/stream.hpp"

namespace kelm::explain {

// Calls `note` for each disagreement.
void checkSections(const StreamReport& report, const Note& note);

}  // namespace kelm::explain
