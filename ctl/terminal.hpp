// The progress line on a terminal.
// SPDX-License-Identifier: Apache-2.0
#pragma once

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

}  // namespace kelm::ctl
