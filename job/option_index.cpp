// An index of a job's options.
// SPDX-License-Identifier: Apache-2.0
#include "job/option_index.hpp"

#include <algorithm>

namespace kelm::job {
namespace {

// With fewer options a linear search is as quick as the index; most jobs have fewer.
constexpr std::size_t kIndexedFrom = 64;

std::size_t searched(std::span<const cups_option_t> options, std::string_view name) {
  const auto found = std::ranges::find_if(
      options, [&](const cups_option_t& option) { return name == option.name; });
  return static_cast<std::size_t>(found - options.begin());
}

}  // namespace

std::size_t OptionIndex::find(std::span<const cups_option_t> options, std::string_view name) {
  if (options.size() < kIndexedFrom) return searched(options, name);
  const bool same = options.data() == options_.data() && options.size() == options_.size();
  if (!same) build(options);
  auto found = positions_.find(name);
  if (found != positions_.end() && name != options[found->second].name) {
    build(options);
    found = positions_.find(name);
  }
  return found != positions_.end() ? found->second : options.size();
}

// The first of equal names stays.
void OptionIndex::build(std::span<const cups_option_t> options) {
  positions_.clear();
  positions_.reserve(options.size());
  for (std::size_t i = 0; i < options.size(); ++i) positions_.emplace(options[i].name, i);
  options_ = options;
}

}  // namespace kelm::job
