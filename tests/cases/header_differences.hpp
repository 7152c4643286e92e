// The whole header that a case expects, rebuilt from a base header and the lines that differ.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace kelm::cases {

// `fault` says what is wrong with the differences, and is empty when nothing is.
struct RebuiltHeader {
  std::string header;
  std::string fault;
};

// Each line of `differences` is about one line of `base`, in the order of `base`:
//   NAME=VALUE        the variable NAME has VALUE
//   -NAME             there is no line for NAME
//   NAME>OTHER=VALUE  there is a line for OTHER instead of the line for NAME
//   NAME+OTHER=VALUE  there is a line for OTHER after the place of NAME
// A line is a fault if the base does not have its variable at this place or later, or if it states
// the value that the base has.
RebuiltHeader rebuildHeader(std::string_view base, std::string_view differences);

}  // namespace kelm::cases
