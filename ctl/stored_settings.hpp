// The facts about a queue's printer that its PPD holds, with their labels.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace kelm::ctl {

struct StoredSetting {
  const char* member;  // of a JSON object
  const char* label;   // in the readable output
  std::variant<bool, std::string, std::vector<std::string>, std::vector<std::int32_t>> value;
  std::vector<int> numbers;  // of a list of texts: each entry's number, from 1 on, with gaps
  // The member of a JSON object for the numbers. Null for lists without gaps, whose numbers say
  // nothing.
  const char* numbersMember = nullptr;
};

// One value in readable form, safe for a terminal.
struct ReadableEntry {
  int number;  // of the entry of a list of texts; 0 where entries have none
  std::string text;

  bool operator==(const ReadableEntry&) const = default;
};

// All settings, in their fixed order; `ppd` may be null.
std::vector<StoredSetting> storedSettings(ppd_file_t* ppd);

// Whether the setting is a list. A list has the entries that are stored, any other setting has one
// entry.
bool isList(const StoredSetting& setting);
std::vector<ReadableEntry> readableEntries(const StoredSetting& setting);

}  // namespace kelm::ctl
