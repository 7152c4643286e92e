// Files of a test's own, gone when the test ends.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace kelm::ppdtext {

class TestFolder {
 public:
  TestFolder() {
    std::string path = std::filesystem::temp_directory_path() / "ppdtext.XXXXXX";
    path_ = mkdtemp(path.data());
  }
  ~TestFolder() { std::filesystem::remove_all(path_); }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  const std::string& path() const { return path_; }

  // Writes `bytes` to the file `name` below the directory and makes its parents; returns its path.
  std::string write(const std::string& name, std::string_view bytes) const {
    const std::filesystem::path file = std::filesystem::path(path_) / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
  }

 private:
  std::string path_;
};

}  // namespace kelm::ppdtext
