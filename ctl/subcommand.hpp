// The table row of a kelmctl subcommand.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <iosfwd>

#include "ctl/arguments.hpp"

namespace kelm::ctl {

// Where a subcommand writes: results to `out`, problems to `err`.
struct Console {
  std::ostream& out;
  std::ostream& err;
  bool errIsTerminal = false;  // progress may be shown on `err`
  bool outIsTerminal = false;  // `out` is a terminal
};

// Runs a subcommand whose arguments have been read; returns its exit status.
using Action = std::function<int(const Console&)>;

struct Subcommand {
  const char* name;
  const char* help;  // one line, without a full stop

  // Declares the subcommand's arguments and returns its action, which must not use `list` any more.
  Action (*declare)(ArgumentList& list);
};

}  // namespace kelm::ctl
