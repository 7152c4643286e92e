// What a subcommand of kelmctl is.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <iosfwd>
#include <span>

#include "ctl/arguments.hpp"

namespace kelm::ctl {

// Where a subcommand writes: its result to `out`, what went wrong to `err`.
struct Console {
  std::ostream& out;
  std::ostream& err;
  bool errIsTerminal = false;  // somebody watches: progress may be shown on `err`
};

// What a subcommand does once its arguments are read; the result is its exit status.
using Action = std::function<int(const Console&)>;

struct Subcommand {
  const char* name;
  const char* help;  // one line, without a full stop

  // Declares the subcommand's arguments and returns its action; the list is gone when it runs.
  Action (*declare)(ArgumentList& list);
};

// All subcommands, in the order of the help text.
std::span<const Subcommand> subcommands();

}  // namespace kelm::ctl
