// Lines and places in a stream of any size, through one block of memory.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "base/byte_source.hpp"

namespace kelm::explain {

class BlockReader {
 public:
  static constexpr std::size_t kBlockSize = std::size_t{256} * 1024;

  explicit BlockReader(base::ByteSource& source) : source_(source), block_(kBlockSize) {}

  // The number of bytes before the window.
  std::uint64_t offset() const { return offset_; }

  // The bytes that are read and not consumed. Valid until the next call that is not const.
  std::string_view window() const { return {block_.data() + begin_, end_ - begin_}; }

  // Makes the window at least `size` bytes long (at most kBlockSize); false when the stream ends
  // before.
  bool require(std::size_t size);

  void consume(std::size_t count);

  // The next line, without its line feed and a carriage return before it, or kBlockSize bytes of
  // it; nothing at the end of the stream.
  std::optional<std::string_view> line();

 private:
  bool fill();

  base::ByteSource& source_;
  std::vector<char> block_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::uint64_t offset_ = 0;
};

}  // namespace kelm::explain
