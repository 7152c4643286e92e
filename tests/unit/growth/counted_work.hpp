// Work counted instead of timed: the same in every run, on a busy machine too.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>

namespace kelm::tests {

// How many steps between two branches the product's code took in `work`. Steps of system libraries
// are not counted.
std::uint64_t stepsOf(const std::function<void()>& work);

}  // namespace kelm::tests
