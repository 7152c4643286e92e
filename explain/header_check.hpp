// Whether the lines of a header are those that the printer expects, in their order.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "explain/stream.hpp"

namespace kelm::explain {

using Note = std::function<void(Finding)>;

class HeaderCheck {
 public:
  explicit HeaderCheck(Note note);

  // The next line of the stream, at byte `offset`, without its line feed.
  void take(std::uint64_t offset, const std::string& line);

  // After the last line of the header; `offset` is where it ends.
  void finish(std::uint64_t offset);

  // Whether it has lines that only jobs of the maker's dialog have.
  bool isDialogJob() const { return isDialogJob_; }

  std::size_t lineCount() const { return lines_.size(); }
  std::vector<pjl::RecordedLine> takeLines() { return std::move(lines_); }

 private:
  void takeVariable(std::uint64_t offset, pjl::RecordedLine& line);
  void checkOrder(std::uint64_t offset, const std::string& variable, std::size_t place);
  void checkMissing(std::uint64_t offset);
  bool seen(const std::string& variable) const;

  Note note_;
  std::vector<pjl::RecordedLine> lines_;
  std::vector<std::string> frame_;  // before the variables
  std::string enter_;               // after them
  std::size_t lastPlace_ = 0;
  std::string lastVariable_;
  bool isDialogJob_ = false;
  bool entered_ = false;
};

}  // namespace kelm::explain
