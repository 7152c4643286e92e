// Values of standard options that CUPS and the filter do not understand.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

#include "explain/remark.hpp"
#include "explain/request.hpp"

namespace kelm::explain {

// What CUPS and the filter do not understand, they take for nothing asked.
std::optional<Remark> remarkOnStandard(const Request& request, const Option& option);

// What CUPS' filters do before this printer's, with any PPD.
std::optional<Remark> remarkOnFilters(const Option& option);

}  // namespace kelm::explain
