// The progress line on a terminal.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/terminal.hpp"

#include <ostream>

#include "ctl/safe_text.hpp"

namespace kelm::ctl {

void ProgressLine::show(std::string_view text) {
  constexpr char kEraseLine[] = "\r\033[K";
  if (console_.errIsTerminal) console_.err << kEraseLine << safeText(text) << std::flush;
}

}  // namespace kelm::ctl
