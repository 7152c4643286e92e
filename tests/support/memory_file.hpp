// A file in memory with a path of its own, for programs that read files by name.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <string>
#include <string_view>

#include "base/byte_source.hpp"

namespace kelm::tests {

class MemoryFile {
 public:
  explicit MemoryFile(std::string_view content) : descriptor_(memfd_create("file", MFD_CLOEXEC)) {
    base::writeAll(descriptor_, content);
  }
  ~MemoryFile() { close(descriptor_); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

 private:
  int descriptor_;
};

}  // namespace kelm::tests
