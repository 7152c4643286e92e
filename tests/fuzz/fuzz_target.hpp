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

// A target of this program. It adds itself to the others, and lives as long as the program.
class ReplayedTarget {
 public:
  ReplayedTarget(const char* name, RunInput* run) noexcept : name_(name), run_(run), next_(first_) {
    first_ = this;
  }
  ReplayedTarget(const ReplayedTarget&) = delete;
  ReplayedTarget& operator=(const ReplayedTarget&) = delete;

  // Null when there is no target of this name.
  static RunInput* find(std::string_view name) {
    for (const ReplayedTarget* each = first_; each != nullptr; each = each->next_) {
      if (each->name_ == name) return each->run_;
    }
    return nullptr;
  }

 private:
  static inline const ReplayedTarget* first_ = nullptr;

  std::string_view name_;
  RunInput* run_;
  const ReplayedTarget* next_;
};

// Ends the program if something that must hold for every input does not.
inline void expect(bool truth) {
  if (!truth) std::abort();
}

// Takes the text up to the next zero byte off the front.
inline std::string nextText(std::string_view& rest) {
  const std::size_t end = std::min(rest.find('\0'), rest.size());
  std::string text(rest.substr(0, end));
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return text;
}

}  // namespace kelm::tests
