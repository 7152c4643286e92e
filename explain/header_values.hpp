// The values that a variable of the header can have.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include "explain/row_facts.hpp"

namespace kelm::explain {

// Whether a line of the row can have the value. Texts that a row copies may be anything.
bool isPossibleValue(const RowFacts& row, std::string_view variable, std::string_view value);

}  // namespace kelm::explain
