// A feature section whose choice differs from the job's: CUPS wrote it before the job's options
// were settled, and the copy loop puts the job's choice in its place.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::job {

struct SectionOverride {
  std::string keyword;
  std::string choice;  // for the opening comment
  std::string code;    // the value line, without its line feed
};

}  // namespace kelm::job
