// PPD files of many shapes and of any size, to measure how the time for a PPD grows.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <span>
#include <string>

namespace kelm::tests {

struct PpdShape {
  const char* name;
  int size;  // that of a file which takes some milliseconds
  std::string (*text)(int size);
};

// Every shape can be read and shown in German ("de").
std::span<const PpdShape> ppdShapes();

// A whole file of the shape.
std::string ppdOf(const PpdShape& shape, int size);

}  // namespace kelm::tests
