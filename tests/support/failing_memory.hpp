// Memory that runs out when a test says so.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

namespace kelm::tests {

// While it exists, every allocation of this thread with more than `mostBytes` fails, as when memory
// is exhausted.
class ScopedMemoryLimit {
 public:
  explicit ScopedMemoryLimit(std::size_t mostBytes);
  ~ScopedMemoryLimit();
  ScopedMemoryLimit(const ScopedMemoryLimit&) = delete;
  ScopedMemoryLimit& operator=(const ScopedMemoryLimit&) = delete;
};

}  // namespace kelm::tests
