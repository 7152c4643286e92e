// The page about the header (docs/pjl-header.md), made from the rows that write the header.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::pjl {

// The whole page, Markdown.
std::string headerDocument();

}  // namespace kelm::pjl
