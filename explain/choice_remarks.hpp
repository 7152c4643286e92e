// Choices of a job's options that are wrong, and custom texts that the printer does not get.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <optional>
#include <string>
#include <vector>

#include "explain/remark.hpp"
#include "explain/request.hpp"
#include "explain/row_facts.hpp"

namespace kelm::explain {

std::vector<std::string> choicesOf(const ppd_option_t& option);

// Whether the job's header is the same with the option in another spelling. Marks the request's
// choices again.
bool hasSameEffect(const Request& request, const Option& option, const Option& spelled);

// On the choice of an option of the PPD.
std::optional<Remark> remarkOnChoice(const Request& request, const Option& option,
                                     const ppd_option_t& known);

// An option that is not in the PPD: the choices are those of the header's table.
std::optional<Remark> remarkOnTableChoice(const Request& request, const Option& option,
                                          const RowFacts& row);

// On an option that takes one of these keywords; finishings takes several of them. If there are no
// keywords, any value is right.
std::optional<Remark> unlessKeywords(const Option& option,
                                     const std::vector<std::string>& keywords);

}  // namespace kelm::explain
