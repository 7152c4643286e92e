// A file with a path, for code that opens files by name. It is in memory if the system has such
// files.
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
    lseek(descriptor_, 0, SEEK_SET);  // on macOS, opening the path continues at this offset
  }
  ~MemoryFile() { close(descriptor_); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  std::string path() const { return "/dev/fd/" + std::to_string(descriptor_); }

 private:
  int descriptor_;
};

}  // namespace kelm::tests
