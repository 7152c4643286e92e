// What a queue's PPD says about its printer, kept without the PPD itself.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "ctl/stored_settings.hpp"
#include "ppdsettings/stored_facts.hpp"

namespace kelm::ctl {

// The values of the stored facts by keyword, as they are stored.
using StoredLines = std::map<std::string, std::string>;

struct StoredState {
  std::string community;
  StoredLines lines;
  std::vector<StoredSetting> settings;
};

StoredLines storedLinesOf(ppd_file_t* ppd);

// Whether `keyword` is the fact's, with an index and a part where it has them.
bool belongsTo(std::string_view keyword, const ppdsettings::StoredFact& fact);

StoredState storedStateOf(ppd_file_t* ppd);

}  // namespace kelm::ctl
