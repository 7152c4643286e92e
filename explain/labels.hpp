// Names and choices in the user's language, from the PPD's own texts.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <string>
#include <string_view>
#include <vector>

#include "explain/request.hpp"
#include "explain/row_facts.hpp"

namespace kelm::explain {

struct Label {
  std::string name;        // of the setting; the variable's when the PPD does not name it
  std::string choice;      // what the value means; the value itself when the PPD does not say
  std::string group = {};  // of the PPD; empty when the PPD has no option for the setting
};

// The line has a step; `row` are the facts of it. `settled` are the options that the header was
// written from. Without a PPD (null) the label is the variable's.
Label labelOf(ppd_file_t* ppd, const RowFacts& row, const pjl::RecordedLine& line,
              const std::vector<Option>& settled);

// The bytes of hex text, as the header sends texts; empty when `hex` is not hex text.
std::string decodedText(std::string_view hex);

}  // namespace kelm::explain
