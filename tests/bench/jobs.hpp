// The jobs that are measured: generated, the same in every run.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>

namespace kelm::bench {

// About `bytes` of PostScript. Line art has drawing operators, 38 bytes per line, with DSC comments
// around every page. Binary data is an image of random bytes, "%" among them.
std::string lineArt(std::size_t bytes);
std::string binaryImage(std::size_t bytes);

}  // namespace kelm::bench
