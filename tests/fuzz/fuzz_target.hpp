// What the fuzz targets share.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

// FUZZ_TARGET(NAME) { ... } : runs one input, which has `size` bytes at `data`, and returns 0. With
// KELM_FUZZ it is what libFuzzer calls, and each target is a program. Without, all targets are in
// one program (replay.cpp), and NAME is its argument.
#ifdef KELM_FUZZ
#define FUZZ_TARGET(NAME) \
  extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
#else
#define FUZZ_TARGET(NAME)                                                      \
  static int NAME##Input(const std::uint8_t* data, std::size_t size);          \
  static const kelm::tests::ReplayedTarget NAME##Replayed(#NAME, NAME##Input); \
  static int NAME##Input(const std::uint8_t* data, std::size_t size)
#endif

namespace kelm::tests {

using RunInput = int(const std::uint8_t* data, std::size_t size);

// Adds a target to those of this program (replay.cpp).
class ReplayedTarget {
 public:
  ReplayedTarget(const char* name, RunInput* run);
};

// Ends the program if something that must hold for every input does not.
inline void expect(bool truth) {
  if (!truth) std::abort();
}

// Takes the text up to the next zero byte off the front.
inline std::string nextText(std::string_view& rest) {
  const std::size_t end = std::min(rest.find('\0'), rest.size());
  const std::string text(rest.substr(0, end));
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return text;
}

}  // namespace kelm::tests
