// Whether the lines of a header are those that the printer expects, in their order.
// SPDX-License-Identifier: Apache-2.0
#include "explain/header_check.hpp"

#include <algorithm>
#include <optional>
#include <utility>

#include "explain/header_values.hpp"
#include "explain/row_facts.hpp"

namespace kelm::explain {
namespace {

struct KnownVariable {
  const pjl::HeaderStep* step;
  bool dialogOnly;
  std::size_t place;  // of the row in a header of the maker's dialog, from 1
};

std::optional<KnownVariable> knownVariable(std::string_view variable) {
  std::size_t place = 0;
  for (const pjl::HeaderSection& section : pjl::headerSections()) {
    for (const pjl::HeaderStep& step : section.steps) {
      ++place;
      const RowFacts& row = factsOf(step, true);
      if (std::ranges::find(row.variables, variable) == row.variables.end()) continue;
      return KnownVariable{&step, section.dialogOnly, place};
    }
  }
  return std::nullopt;
}

std::string frameText(const pjl::RecordedLine& line) {
  return line.variable.empty() ? line.value : "@PJL SET " + line.variable + "=" + line.value;
}

}  // namespace

HeaderCheck::HeaderCheck(Note note) : note_(std::move(note)) {
  job::PrintJobData empty;
  empty.title = "";
  for (const pjl::RecordedLine& line : pjl::recordHeader(empty)) {
    if (line.step == nullptr) frame_.push_back(frameText(line));
  }
  enter_ = frame_.back();
  frame_.pop_back();
}

bool HeaderCheck::seen(const std::string& variable) const {
  return std::ranges::any_of(
      lines_, [&](const pjl::RecordedLine& line) { return line.variable == variable; });
}

void HeaderCheck::take(std::uint64_t offset, const std::string& line) {
  const std::size_t number = lines_.size();
  pjl::RecordedLine recorded = pjl::recordedLine(nullptr, line);
  if (line == enter_) {
    entered_ = true;
    if (number < frame_.size()) note_({offset, "the header ends within its first lines"});
  } else if (number < frame_.size()) {
    if (line != frame_[number]) {
      note_({offset, "line " + std::to_string(number + 1) + " is \"" + line + "\", not \"" +
                         frame_[number] + "\""});
    }
  } else if (recorded.variable.empty()) {
    note_({offset, "\"" + line + "\" is not a line of a header"});
  } else {
    takeVariable(offset, recorded);
  }
  lines_.push_back(std::move(recorded));
}

void HeaderCheck::takeVariable(std::uint64_t offset, pjl::RecordedLine& line) {
  const auto known = knownVariable(line.variable);
  if (!known) {
    note_({offset, line.variable + " is not a variable of this printer", line.variable});
    return;
  }
  line.step = known->step;
  isDialogJob_ = isDialogJob_ || known->dialogOnly;
  if (seen(line.variable)) note_({offset, line.variable + " appears twice", line.variable});
  checkOrder(offset, line.variable, known->place);
  const RowFacts& row = factsOf(*known->step, true);
  if (lacksChoice(row, line.variable, line.value)) {
    note_({offset, line.variable + " is empty: the printer does not have the job's choice",
           line.variable});
  } else if (!isPossibleValue(row, line.variable, line.value)) {
    note_({offset, line.variable + " cannot be \"" + line.value + "\"", line.variable});
  }
}

void HeaderCheck::checkOrder(std::uint64_t offset, const std::string& variable, std::size_t place) {
  if (place < lastPlace_) {
    note_({offset,
           variable + " comes after " + lastVariable_ + ", but the printer needs it earlier",
           variable});
    return;
  }
  lastPlace_ = place;
  lastVariable_ = variable;
}

void HeaderCheck::checkMissing(std::uint64_t offset) {
  pjl::forEachStep(isDialogJob_, [&](const pjl::HeaderStep& step) {
    const RowFacts& row = factsOf(step, isDialogJob_);
    const auto isSeen = [&](const std::string& variable) { return seen(variable); };
    const bool whole = row.writesAllVariables ? std::ranges::all_of(row.variables, isSeen)
                                              : std::ranges::any_of(row.variables, isSeen);
    if (!whole && !row.mayHaveNoLine) note_({offset, row.variables.front() + " is missing"});
  });
}

void HeaderCheck::finish(std::uint64_t offset) {
  if (lines_.empty()) {
    note_({offset, "there is no header: the stream does not begin with the UEL and @PJL"});
    return;
  }
  checkMissing(offset);
  if (!entered_) note_({offset, "the switch to PostScript (\"" + enter_ + "\") is missing"});
}

}  // namespace kelm::explain
