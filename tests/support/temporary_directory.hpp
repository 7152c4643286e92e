// A temporary directory of a test, and the contents of its files.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelm::tests {

// Made and removed with the object, in the system's directory for temporary files.
class TemporaryDirectory {
 public:
  TemporaryDirectory();
  ~TemporaryDirectory();
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  const std::filesystem::path& path() const { return path_; }

  // The names in `directory` (below this one), sorted.
  std::vector<std::string> names(const std::filesystem::path& directory = "") const;

 private:
  std::filesystem::path path_;
};

// The whole content; nothing when the file cannot be opened.
std::optional<std::string> readFile(const std::filesystem::path& path);

void writeFile(const std::filesystem::path& path, std::string_view content);

}  // namespace kelm::tests
