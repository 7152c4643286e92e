// Papers that disagree, or that the printer does not have.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "explain/remark.hpp"
#include "explain/request.hpp"

namespace kelm::explain {

// On the words of "media": `known` are the trays and paper types.
std::optional<Remark> remarkOnMedia(const Request& request, const Option& option,
                                    const std::vector<std::string>& known);

// If CUPS' own option and the PPD's choose different papers. libcups decides, because "media" has
// many forms.
std::optional<Remark> remarkOnPaper(const Request& request);

// Dialogs refuse custom papers that the printer cannot have, and lp(1) does not.
std::optional<Remark> remarkOnCustomPaper(const Request& request, const Option& option);

// CUPS writes a custom page region as a paper of no size.
std::optional<Remark> remarkOnPageRegion(const Option& option);

}  // namespace kelm::explain
