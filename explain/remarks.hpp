// What is wrong with a job's options before it is printed.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "explain/request.hpp"

namespace kelm::explain {

struct Remark {
  Option option;                     // as typed
  std::string problem;               // one sentence without the option, such as "is not an option"
  std::vector<std::string> choices;  // that exist, if the option's choice does not
  std::string nearest;               // option or choice that was probably meant; empty without one
  std::vector<std::string> variables = {};  // of the header, that the option is for
};

// In the order of the options. The request's choices must be marked in its PPD (outcomeOf).
std::vector<Remark> remarksOn(const Request& request);

// The number of characters to insert, remove or replace, and of neighbours to swap, to turn one
// text into the other, without regard to case. For texts longer than 128 bytes, the length of the
// longer one.
std::size_t editDistance(std::string_view one, std::string_view other);

}  // namespace kelm::explain
