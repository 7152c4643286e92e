// Runs kelmctl within the process of a test.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "ctl/command_line.hpp"

namespace kelm::ctl {

struct Outcome {
  int status;
  std::string out;
  std::string err;
};

// Runs kelmctl with these arguments, without the program's name.
inline Outcome runKelmctl(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "kelmctl");
  std::ostringstream out;
  std::ostringstream err;
  const int status =
      runCommandLine(static_cast<int>(arguments.size()), arguments.data(), {out, err});
  return {status, out.str(), err.str()};
}

}  // namespace kelm::ctl
