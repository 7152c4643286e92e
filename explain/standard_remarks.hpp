// Values of standard options that CUPS and the filter do not understand.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "explain/remark.hpp"
#include "explain/request.hpp"

namespace kelm::explain {

// The keywords of an IPP attribute that CUPS or the filter turns into options of the PPD; none for
// any other option.
std::vector<std::string> keywordsOfIpp(const Request& request, std::string_view name);

// On the value of a standard option that CUPS and the filter do not understand, and so ignore.
std::optional<Remark> remarkOnStandard(const Request& request, const Option& option);

// On options that CUPS' own filters handle before this printer's filter, with any PPD.
std::optional<Remark> remarkOnFilters(const Option& option);

}  // namespace kelm::explain
