// Files of a test, which are removed when the test ends.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace kelm::ppdtext {

class TestDirectory {
 public:
  TestDirectory() {
    std::string path = std::filesystem::temp_directory_path() / "ppdtext.XXXXXX";
    path_ = mkdtemp(path.data());
  }
  ~TestDirectory() { std::filesystem::remove_all(path_); }
  TestDirectory(const TestDirectory&) = delete;
  TestDirectory& operator=(const TestDirectory&) = delete;

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
