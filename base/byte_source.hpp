// Byte input and output over file descriptors.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
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
// reads are resumed, and a non-blocking descriptor is waited for.
class DescriptorSource final : public ByteSource {
 public:
  explicit DescriptorSource(int descriptor) : descriptor_(descriptor) {}
  bool isOpen() const { return descriptor_ >= 0; }
  std::size_t read(std::span<char> room) override;
  // The errno of the read that failed; 0 when none did.
  int error() const { return error_; }

 private:
  int descriptor_;
  int error_ = 0;
};

// Writes all of `bytes` to `descriptor`, resuming interrupted and partial writes and waiting for a
// non-blocking descriptor. Returns 0, or the errno of the write at which it gave up.
int writeAll(int descriptor, std::span<const char> bytes);

// Writes to a descriptor that it does not own, as writeAll does. A failed write loses its bytes;
// later ones are tried all the same.
class DescriptorSink {
 public:
  // Called at the first failed write with its errno and the number of bytes written until then.
  using OnFailure = std::function<void(int error, std::uint64_t written)>;

  DescriptorSink(int descriptor, OnFailure onFailure);
  void write(std::span<const char> bytes);

 private:
  int descriptor_;
  OnFailure onFailure_;  // empty once it was called
  std::uint64_t written_ = 0;
};

}  // namespace kelm::base
