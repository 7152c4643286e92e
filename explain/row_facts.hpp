// What the header's rows say about themselves: their variables, options and values.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pjl/variables.hpp"

namespace kelm::explain {

enum class ValueKind { kTable, kCopy, kUpperCase, kOrientation, kOwn };

// A row as one kind of job uses it. Texts and tables live as long as the program.
struct RowFacts {
  ValueKind kind = ValueKind::kOwn;
  std::vector<std::string> variables;  // several if the job chooses one of them, or for two lines
  std::vector<std::string> options;    // that the value can come from, in the row's order
  std::optional<pjl::ValueTableView> table;  // of a table row
  pjl::Fallback fallback = pjl::Fallback::kRow;
  bool writesAllVariables = false;  // a line for each variable, not for only one
  bool mayHaveNoLine = false;
  bool isHexText = false;  // the value is a text, sent in hex

  bool hasOption(std::string_view name) const;
  bool hasChoice(std::string_view name) const;  // in its table
};

// Whether a line of the row is empty because the printer does not have the job's choice. This does
// not include texts that may not be sent, which are left out on purpose.
bool lacksChoice(const RowFacts& row, std::string_view variable, std::string_view value);

// The rows of the header, and so their facts, live as long as the program.
const RowFacts& factsOf(const pjl::HeaderStep& step, bool isDialogJob);

// The option's row of the header, for a kind of job.
std::optional<RowFacts> rowOf(std::string_view option, bool isDialogJob);

}  // namespace kelm::explain
