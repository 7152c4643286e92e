// Lines and places in a stream of any size, through one block of memory.
// SPDX-License-Identifier: Apache-2.0
#include "explain/block_reader.hpp"

#include <cstring>
#include <span>

namespace kelm::explain {

bool BlockReader::fill() {
  if (begin_ > 0) {
    std::memmove(block_.data(), block_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
  }
  if (end_ == block_.size()) return false;
  const std::size_t count = source_.read(std::span(block_).subspan(end_));
  end_ += count;
  return count > 0;
}

bool BlockReader::require(std::size_t size) {
  while (end_ - begin_ < size) {
    if (!fill()) return false;
  }
  return true;
}

void BlockReader::consume(std::size_t count) {
  begin_ += count;
  offset_ += count;
}

std::optional<std::string_view> BlockReader::line() {
  std::size_t searched = 0;
  for (;;) {
    const std::size_t end = window().find('\n', searched);
    const bool found = end != std::string_view::npos;
    searched = window().size();
    if (!found && fill()) continue;
    if (window().empty()) return std::nullopt;
    std::string_view text = window().substr(0, found ? end : window().size());
    consume(text.size() + (found ? 1 : 0));
    if (text.ends_with('\r')) text.remove_suffix(1);
    return text;
  }
}

}  // namespace kelm::explain
