// Writes the page about the header (docs/pjl-header.md) to standard output.
// SPDX-License-Identifier: Apache-2.0
#include <cstdio>

#include "tests/unit/pjl/header_doc.hpp"

int main() {
  const std::string page = kelm::pjl::headerDocument();
  return std::fwrite(page.data(), 1, page.size(), stdout) == page.size() ? 0 : 1;
}
