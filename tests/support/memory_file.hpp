// A file in memory, where the system has such files, with a path of its own, for programs that read
// files by name.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <unistd.h>

#include <string>
#include <string_view>

#include "base/byte_source.hpp"
#include "tests/support/nameless_file.hpp"

namespace kelm::tests {

class MemoryFile {
 public:
  explicit MemoryFile(std::string_view content) : descriptor_(openNamelessFile()) {
    base::writeAll(descriptor_, content);
    lseek(descriptor_, 0, SEEK_SET);  // where opening the path goes on, on macOS
  }
  ~MemoryFile() { close(descriptor_); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  std::string path() const { return "/dev/fd/" + std::to_string(descriptor_); }

 private:
  int descriptor_;
};

}  // namespace kelm::tests
