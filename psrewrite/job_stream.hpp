// The job's PostScript on its way from the input to the printer: block input, line readers, output.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <new>
#include <span>
#include <string_view>

#include "base/byte_source.hpp"

namespace kelm::psrewrite {

// One line of the job: at most 4096 bytes and a terminator. Writers treat it as a C string and do
// not see what follows a zero byte.
class LineBuffer {
 public:
  static constexpr std::size_t kSize = 4096;

  void clear() { bytes_.fill('\0'); }
  char* data() { return bytes_.data(); }
  const char* text() const { return bytes_.data(); }
  // Ends the text after `length` bytes (at most kSize).
  void terminate(std::size_t length) { bytes_[length] = '\0'; }
  // Writes `text` (shorter than kSize) and a terminator over the front of the line; the bytes after
  // them stay.
  void overwrite(std::string_view text);
  bool contains(const char* needle) const;

 private:
  std::array<char, kSize + 1> bytes_{};
};

// What is read and written is appended to the diagnostic files, except where the name of an
// operation or its comment says otherwise. The text between two examined lines is appended in one
// call.
class JobStream {
 public:
  // Owns none of them; all outlive the stream. `direct`, if not null, writes to the same place as
  // `output`: long runs go there without being copied to the buffer of `output`.
  JobStream(base::ByteSource& input, std::FILE* output, base::DescriptorSink* direct = nullptr);

  std::FILE* output() { return output_; }

  // The bytes that were read but not yet consumed. Reads a block when there are none, so it is
  // empty only at the end of the input. Valid until the next call that consumes or reads.
  std::span<const char> window();

  // Drops the first `count` bytes of the window. Unlogged.
  void consume(std::size_t count);

  // Moves the first `count` bytes of the window to the output.
  void pass(std::size_t count);

  // The next byte (0 to 255), or EOF. Unlogged.
  int get();

  // The standard line reader (fgets): at most `size` - 1 bytes, up to and with the first line feed,
  // then a terminator. Null at the end of the input, and the buffer is untouched. Unlogged.
  char* gets(char* buffer, std::size_t size);

  void write(std::string_view bytes);
  void writeUnlogged(std::string_view bytes);

 private:
  static constexpr std::size_t kPageSize = 4096;
  static constexpr std::align_val_t kPageAlignment{kPageSize};
  static constexpr std::size_t kBlockSize = 32 * kPageSize;
  static constexpr std::size_t kLongRun = 4 * kPageSize;

  struct FreeBlock {
    void operator()(char* block) const { ::operator delete[](block, kPageAlignment); }
  };

  // Stores bytes up to `limit`, a line feed (stored too) or the end. Returns the number of bytes
  // stored.
  std::size_t takeLine(char* buffer, std::size_t limit);

  friend std::int32_t readLine(JobStream& stream, char* buffer, std::size_t limit);

  base::ByteSource& input_;
  std::FILE* output_;
  base::DescriptorSink* direct_;
  std::unique_ptr<char[], FreeBlock> block_;  // begins at a page
  std::span<const char> window_;
  bool ended_ = false;
};

// Reads the rest of a line, line feed included, at most `limit` bytes. Returns the number of bytes
// stored, 0 at the end of the input. Writes no terminator; the caller zero-fills.
std::int32_t readLine(JobStream& stream, char* buffer, std::size_t limit);

// Reads a line with the standard line reader and removes its first line feed; null at the end of
// the input.
char* fgetline(JobStream& stream, char* buffer, std::size_t size);

}  // namespace kelm::psrewrite
