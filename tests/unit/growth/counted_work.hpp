// Work counted instead of timed: the same in every run, even on a busy machine.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>

namespace kelm::tests {

// How many basic blocks of the product's code `work` ran. Those of system libraries are not
// counted.
std::uint64_t stepsOf(const std::function<void()>& work);

}  // namespace kelm::tests
