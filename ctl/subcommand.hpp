// What a subcommand of kelmctl is.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <iosfwd>
#include <span>

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

  // Adds the subcommand's arguments to `app`, which outlives the action, and returns the action.
  Action (*declare)(CLI::App& app);
};

// All subcommands, in the order of the help text.
std::span<const Subcommand> subcommands();

}  // namespace kelm::ctl
