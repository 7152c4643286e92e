// replay TARGET DIRECTORY : runs a fuzz target on every file of a directory: the seeds, and inputs
// that a fuzzer found.
// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "tests/fuzz/fuzz_target.hpp"

namespace kelm::tests {
namespace {

std::map<std::string, RunInput*>& replayedTargets() {
  static std::map<std::string, RunInput*> targets;
  return targets;
}

}  // namespace

ReplayedTarget::ReplayedTarget(const char* name, RunInput* run) { replayedTargets()[name] = run; }

}  // namespace kelm::tests

int main(int argc, char* argv[]) {
  const auto& targets = kelm::tests::replayedTargets();
  const auto target = argc == 3 ? targets.find(argv[1]) : targets.end();
  if (target == targets.end()) {
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
    target->second(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    ++replayed;
  }
  std::printf("%d inputs replayed\n", replayed);
  return replayed == 0 ? 1 : 0;
}
