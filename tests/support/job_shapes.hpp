// Jobs of many shapes and of any size, to measure how the time for a job grows.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <span>
#include <string>

namespace kelm::tests {

struct JobShape {
  const char* name;
  int size;  // that of a job for which the filter needs some hundredths of a second
  std::string (*options)(int size);
  std::string (*postScript)(int size);
};

std::span<const JobShape> jobShapes();

}  // namespace kelm::tests
