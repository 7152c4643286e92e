// The progress line on a terminal, and questions to the user.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ctl/subcommand.hpp"

namespace kelm::ctl {

// One line on the console's standard error that is rewritten while work is under way and erased at
// the end. Writes nothing when standard error is not a terminal. The console outlives it.
class ProgressLine {
 public:
  explicit ProgressLine(const Console& console) : console_(console) {}
  ~ProgressLine() { show(""); }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void show(std::string_view text);

 private:
  const Console& console_;
};

// For a subcommand that shows no progress.
inline Console withoutProgress(const Console& console) {
  return {console.out, console.err, false, console.outIsTerminal};
}

// Shows `prompt` on the user's terminal, wherever the standard streams go, and reads a line that is
// not shown. Nothing without a terminal or a line.
std::optional<std::string> askSecretly(std::string_view prompt);

}  // namespace kelm::ctl
