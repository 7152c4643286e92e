// Messages of kelmctl on standard error.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/message.hpp"

#include <ostream>

#include "ctl/exit_status.hpp"
#include "ctl/safe_text.hpp"

namespace kelm::ctl {

void complain(const Console& console, std::string_view text) {
  constexpr char kEraseProgress[] = "\r\033[K";
  if (console.errIsTerminal) console.err << kEraseProgress;
  console.err << "kelmctl: " << safeText(text) << std::endl;
}

std::string inQuotes(std::string_view text) { return '"' + std::string(text) + '"'; }

int fail(const Console& console, std::string_view problem) {
  complain(console, problem);
  return kExitFailed;
}

}  // namespace kelm::ctl
