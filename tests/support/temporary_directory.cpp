// A temporary directory of a test, and the contents of its files.
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/temporary_directory.hpp"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace kelm::tests {

TemporaryDirectory::TemporaryDirectory() {
  std::string name = (std::filesystem::temp_directory_path() / "kelm-test-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) std::abort();
  path_ = name;
}

TemporaryDirectory::~TemporaryDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::vector<std::string> TemporaryDirectory::names(const std::filesystem::path& directory) const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(path_ / directory)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::optional<std::string> readFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string{std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::filesystem::path& path, std::string_view content) {
  std::ofstream(path, std::ios::binary) << content;
}

}  // namespace kelm::tests
