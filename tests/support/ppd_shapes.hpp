// PPD files of many shapes, each as large as wanted, to measure how the time for a PPD grows.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <span>
#include <string>

namespace kelm::tests {

struct PpdShape {
  const char* name;
  int size;  // a file that takes some milliseconds
  std::string (*text)(int size);
};

// Every shape can be read and shown in German ("de").
std::span<const PpdShape> ppdShapes();

// A whole file of the shape.
std::string ppdOf(const PpdShape& shape, int size);

}  // namespace kelm::tests
