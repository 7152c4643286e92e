// A newly installed PPD with what a queue had set in its old one.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <string>
#include <string_view>
#include <vector>

namespace kelm::ctl {

struct RefreshedPpd {
  std::string text;
  std::size_t facts = 0;           // stored facts that were taken over, counted as lines
  std::size_t defaults = 0;        // defaults of the queue that differ from the new PPD's
  std::vector<std::string> notes;  // what could not be kept, one sentence each
};

// `newText`, the text of `newPpd`, with the stored facts of `oldPpd` after its first line and with
// the defaults of `oldPpd` whose options and choices still exist.
RefreshedPpd refreshedPpd(std::string_view newText, const ppd_file_t* newPpd, ppd_file_t* oldPpd);

// Whether both texts have the same lines, in any order: CUPS moves lines when it stores facts.
bool haveSameLines(std::string_view one, std::string_view other);

}  // namespace kelm::ctl
