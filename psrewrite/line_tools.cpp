// The small string tools of every rewriter: the "XXX" placeholder and the parenthesised value.
#include "psrewrite/line_tools.hpp"

#include <cstring>
#include <new>
#include <string_view>

namespace kelm::psrewrite {
namespace {

constexpr char kNoToken[] = "(null)";

// The next piece of `rest` between runs of ")", as strtok finds it, taken off the front of `rest`.
std::string_view nextToken(std::string_view& rest) {
  const std::size_t start = rest.find_first_not_of(')');
  if (start == std::string_view::npos) {
    rest = {};
    return kNoToken;
  }
  const std::size_t end = rest.find(')', start);
  const std::string_view token = rest.substr(start, end - start);
  rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
  return token;
}

}  // namespace

std::optional<std::string> replace_str(const char* source, const char* from, const char* to) try {
  const std::size_t fromLength = std::strlen(from);
  std::string result;
  const char* rest = source;
  for (const char* hit = nullptr; (hit = std::strstr(rest, from)) != nullptr;
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
  const std::string oldValue(nextToken(rest));
  const std::string tail(nextToken(rest));
  std::string result = "(" + value + ")" + tail;
  line = oldValue + ")" + tail;
  return result;
} catch (const std::bad_alloc&) {
  return std::nullopt;
}

bool outputReplacingValue(JobStream& stream, LineBuffer& buffer, const void* /*ignored*/,
                          const char* value) {
  buffer.clear();
  if (stream.gets(buffer.data(), LineBuffer::kSize) == nullptr) return false;
  const auto line = replace_str(buffer.text(), kPlaceholder, value);
  if (!line) return false;
  stream.write(*line);
  return true;
}

}  // namespace kelm::psrewrite
