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

// The PPD's option that a variable of the row belongs to; null when the PPD has none, or without a
// PPD. Lives as long as the PPD.
const ppd_option_t* ppdOptionOf(ppd_file_t* ppd, const RowFacts& row, std::string_view variable);

struct Label {
  std::string name;    // of the setting; the variable's when the PPD does not name it
  std::string choice;  // what the value means; the value itself when the PPD does not say
};

// `option` is ppdOptionOf's; `settled` the options that the header was written from.
Label labelOf(const ppd_option_t* option, const RowFacts& row, const pjl::RecordedLine& line,
              const std::vector<Option>& settled);

// The bytes of hex text, as the header sends texts; empty when `hex` is not hex text.
std::string decodedText(std::string_view hex);

}  // namespace kelm::explain
