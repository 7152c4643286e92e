// A printer's answers as keywords and values of the queue's PPD
// (docs/stored-facts.md).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "ctl/printer_facts.hpp"
#include "ctl/stored_state.hpp"

namespace kelm::ctl {

struct UpdateLine {
  std::string keyword;
  std::string value;  // as it is stored; empty to clear an old value
};

// The lines, or, when `problem` is not empty, why there are none and what to do about it.
struct UpdateLines {
  std::vector<UpdateLine> lines;
  std::string problem;
};

// The longest line of a PPD that libcups reads has 255 bytes: "*", the keyword, ": " and the value.
inline constexpr std::size_t kMostOfKeywordAndValue = 252;

// CUPS passes a job's options to the filter as one argument, which Linux limits to 131071 bytes.
// The rest is left for the options that CUPS adds.
inline constexpr std::size_t kMostOfAllLines = 100'000;

// The printer's MAC address in the form that a job understands: six hexadecimal parts between
// colons. The printer may write it with hyphens or as twelve digits. Nothing for an all-zero
// address, which means "none", and for any other text, which would end every job of a queue that
// wakes its printer.
std::optional<std::string> storableMacAddress(const PrinterFacts& facts);
std::optional<std::string> storableMacAddress(std::string text);

// What the printer did not give, such as "complete list of its forms"; none when all facts are
// known.
std::vector<std::string> missingFacts(const PrinterFacts& facts);

// The lines that store what the printer at `address` said. The shared boxes in use are stored, box
// n at index n - 1; the other lists are stored from index 0 on. Other entries in `stored` get an
// empty value, because CUPS cannot remove a keyword. What the printer did not give is not changed,
// and PPDOptionsUpdated is set only when nothing is missing.
UpdateLines updateLinesFor(const PrinterFacts& facts, const std::string& address,
                           const std::string& community, const StoredLines& stored);

// The first of `lines` that is not stored; null when all are.
const UpdateLine* firstNotStored(const std::vector<UpdateLine>& lines, const StoredLines& stored);

}  // namespace kelm::ctl
