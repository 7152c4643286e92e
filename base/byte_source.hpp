// Byte input and output over file descriptors.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <span>

namespace kelm::base {

class ByteSource {
 public:
  virtual ~ByteSource() = default;

  // Reads into the front of `room` (not empty). Returns the number of bytes; 0 at end of input or
  // on a read error.
  virtual std::size_t read(std::span<char> room) = 0;
};

// Reads a descriptor that it does not own (negative: a file that could not be opened). Interrupted
// reads are resumed.
class DescriptorSource final : public ByteSource {
 public:
  explicit DescriptorSource(int descriptor) : descriptor_(descriptor) {}
  bool isOpen() const { return descriptor_ >= 0; }
  std::size_t read(std::span<char> room) override;

 private:
  int descriptor_;
};

// Writes all of `bytes` to `descriptor`, resuming interrupted and partial writes; gives up
// silently at the first other error.
void writeAll(int descriptor, std::span<const char> bytes);

}  // namespace kelm::base
