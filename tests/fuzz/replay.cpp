// replay TARGET DIRECTORY : runs a fuzz target on every file of a directory: the seeds, and inputs
// that a fuzzer found.
// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "tests/fuzz/fuzz_target.hpp"

int main(int argc, char* argv[]) {
  auto* const run = argc == 3 ? kelm::tests::ReplayedTarget::find(argv[1]) : nullptr;
  if (run == nullptr) {
    std::fprintf(stderr, "usage: %s TARGET DIRECTORY\n", argv[0]);
    return 2;
  }
  int replayed = 0;
  for (const auto& entry : std::filesystem::directory_iterator(argv[2])) {
    // If an input ends the program, its name is the last one.
    std::printf("%s\n", entry.path().filename().c_str());
    std::fflush(stdout);
    std::ifstream file(entry.path(), std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    run(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    ++replayed;
  }
  std::printf("%d inputs replayed\n", replayed);
  return replayed == 0 ? 1 : 0;
}
