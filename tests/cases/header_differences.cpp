// The whole header that a case expects, rebuilt from a base header and the lines that differ.
// SPDX-License-Identifier: Apache-2.0
#include "tests/cases/header_differences.hpp"

#include <span>
#include <vector>

namespace kelm::cases {
namespace {

constexpr std::string_view kSet = "@PJL SET ";

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return lines;
}

// Takes the differences that are about one line of the base.
class Differences {
 public:
  explicit Differences(std::string_view text) : lines_(linesOf(text)), rest_(lines_) {}

  bool takeRemovalOf(std::string_view name) {
    const bool removed =
        !rest_.empty() && rest_.front().starts_with('-') && rest_.front().substr(1) == name;
    if (removed) rest_ = rest_.subspan(1);
    return removed;
  }

  // The rest of the next difference after NAME and `mark`; nothing when it is about another line.
  bool take(std::string_view name, char mark, std::string_view& rest) {
    if (rest_.empty() || !rest_.front().starts_with(name)) return false;
    rest = rest_.front().substr(name.size());
    if (!rest.starts_with(mark)) return false;
    rest.remove_prefix(1);
    rest_ = rest_.subspan(1);
    return true;
  }

  // The differences that no line of the base has taken.
  std::span<const std::string_view> rest() const { return rest_; }

 private:
  std::vector<std::string_view> lines_;
  std::span<const std::string_view> rest_;
};

void append(std::string& header, std::string_view assignment) {
  header.append(kSet).append(assignment).append("\n");
}

void rebuildLine(RebuiltHeader& result, std::string_view assignment, Differences& differences) {
  const std::size_t equals = assignment.find('=');
  const std::string_view name = assignment.substr(0, equals);
  const std::string_view baseValue = assignment.substr(equals + 1);
  std::string_view stated;
  if (differences.take(name, '=', stated)) {
    if (stated == baseValue) {
      result.fault = "\"" + std::string(assignment) + "\" is what the base header says: remove it";
    }
    append(result.header, std::string(name) + "=" + std::string(stated));
  } else if (differences.take(name, '>', stated)) {
    append(result.header, stated);
  } else if (!differences.takeRemovalOf(name)) {
    append(result.header, assignment);
  }
  while (differences.take(name, '+', stated)) append(result.header, stated);
}

}  // namespace

RebuiltHeader rebuildHeader(std::string_view base, std::string_view text) {
  RebuiltHeader result;
  Differences differences(text);
  for (const std::string_view line : linesOf(base)) {
    if (line.starts_with(kSet)) {
      rebuildLine(result, line.substr(kSet.size()), differences);
    } else {
      result.header.append(line).append("\n");
    }
  }
  if (!differences.rest().empty()) {
    result.fault = "\"" + std::string(differences.rest().front()) +
                   "\" is about no line of the base header, or not in the base header's order";
  }
  return result;
}

}  // namespace kelm::cases
