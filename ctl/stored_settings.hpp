// What is stored about a queue's printer, as people read it.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <string>
#include <vector>

namespace kelm::ctl {

struct StoredSetting {
  const char* label;
  bool isList;
  std::vector<std::string> values;  // fit for a terminal; just one when it is no list
};

// All settings, in their fixed order; `ppd` may be null.
std::vector<StoredSetting> storedSettings(ppd_file_t* ppd);

}  // namespace kelm::ctl
