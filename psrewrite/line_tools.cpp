// The small string tools of every rewriter: the "XXX" placeholder and the parenthesised value.
// SPDX-License-Identifier: Apache-2.0
#include "psrewrite/line_tools.hpp"

#include <cstring>
#include <new>
#include <string_view>

#include "base/tokens.hpp"

namespace kelm::psrewrite {
namespace {

constexpr char kNoToken[] = "(null)";

}  // namespace

std::optional<std::string> replace_str(const char* source, const char* from, const char* to) try {
  const std::size_t fromLength = std::strlen(from);
  std::string result;
  const char* rest = source;
  for (const char* hit = nullptr; fromLength > 0 && (hit = std::strstr(rest, from)) != nullptr;
       rest = hit + fromLength) {
    result.append(rest, hit);
    result.append(to);
  }
  result.append(rest);
  return result;
} catch (const std::bad_alloc&) {
  return std::nullopt;
}

std::optional<std::string> erase_str(std::string& line, const std::string& value) try {
  std::string_view rest = line;
  const std::string oldValue(base::nextToken(rest, ')').value_or(kNoToken));
  const std::string tail(base::nextToken(rest, ')').value_or(kNoToken));
  std::string result = "(" + value + ")" + tail;
  line = oldValue + ")" + tail;
  return result;
} catch (const std::bad_alloc&) {
  return std::nullopt;
}

bool readValueLine(JobStream& stream, LineBuffer& buffer) {
  buffer.clear();
  return readLine(stream, buffer.data(), LineBuffer::kSize - 1) > 0;
}

bool readValueLineUnlogged(JobStream& stream, LineBuffer& buffer) {
  buffer.clear();
  return stream.gets(buffer.data(), LineBuffer::kSize) != nullptr;
}

bool outputReplacingValue(JobStream& stream, LineBuffer& buffer, const void* /*ignored*/,
                          const char* value) {
  if (!readValueLine(stream, buffer)) return false;
  const auto line = replace_str(buffer.text(), kPlaceholder, value);
  if (!line) return false;
  stream.write(*line);
  return true;
}

}  // namespace kelm::psrewrite
