// An index of a job's options: lookups by name whose cost does not grow with their number.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/cups.h>

#include <cstddef>
#include <span>
#include <string_view>
#include <unordered_map>

namespace kelm::job {

// Notices by itself when the array moves, grows or shrinks, and when an option that it finds has
// another name. Values may change in place. Call forget() after a change that keeps the array's
// address and size but brings in a new name.
class OptionIndex {
 public:
  // The position of the first option of exactly this name; options.size() when there is none.
  std::size_t find(std::span<const cups_option_t> options, std::string_view name);

  void forget() { options_ = {}; }

 private:
  void build(std::span<const cups_option_t> options);

  std::span<const cups_option_t> options_;  // the array that the positions refer to
  std::unordered_map<std::string_view, std::size_t> positions_;
};

}  // namespace kelm::job
