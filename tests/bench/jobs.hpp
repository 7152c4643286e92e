// The jobs that are measured: generated, the same in every run.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>

namespace kelm::bench {

// About `bytes` of PostScript. Line art is drawing operators of 38 bytes a line with DSC comments
// around every page; binary data is an image with "%" as often as chance brings it.
std::string lineArt(std::size_t bytes);
std::string binaryImage(std::size_t bytes);

}  // namespace kelm::bench
