// Work counted instead of timed.
// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/growth/counted_work.hpp"

namespace {

std::uint64_t steps = 0;

}  // namespace

// Both compilers call it at the start of every basic block (-fsanitize-coverage=trace-pc).
extern "C" void __sanitizer_cov_trace_pc() { ++steps; }

namespace kelm::tests {

std::uint64_t stepsOf(const std::function<void()>& work) {
  const std::uint64_t before = steps;
  work();
  return steps - before;
}

}  // namespace kelm::tests
