// A remark on an option of a job.
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

}  // namespace kelm::explain
