// The parts of a device URI that name the printer (RFC 3986).
// SPDX-License-Identifier: Apache-2.0
#include "wakeup/uri.hpp"

#include <uriparser/Uri.h>

#include <charconv>

#include "base/utf.hpp"

namespace kelm::wakeup {
namespace {

// A parsed URI; its components refer to the text that was parsed.
class ParsedUri {
 public:
  explicit ParsedUri(std::string_view text) {
    const char* problem = nullptr;
    valid_ = uriParseSingleUriExA(&uri_, text.data(), text.data() + text.size(), &problem) ==
             URI_SUCCESS;
  }
  ~ParsedUri() {
    if (valid_) uriFreeUriMembersA(&uri_);
  }
  ParsedUri(const ParsedUri&) = delete;
  ParsedUri& operator=(const ParsedUri&) = delete;

  bool valid() const { return valid_; }
  const UriUriA& uri() const { return uri_; }

 private:
  UriUriA uri_{};
  bool valid_;
};

std::string textOf(const UriTextRangeA& range) {
  return range.first == nullptr ? std::string() : std::string(range.first, range.afterLast);
}

bool isIpLiteral(const UriHostDataA& data) {
  return data.ip6 != nullptr || data.ipFuture.first != nullptr;
}

// The byte of the two hexadecimal digits at the front of `digits`; nothing without them.
std::optional<char> byteOf(std::string_view digits) {
  unsigned char byte = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, problem] = std::from_chars(digits.data(), end, byte, 16);
  if (digits.size() != 2 || problem != std::errc() || stop != end) return std::nullopt;
  return static_cast<char>(byte);
}

}  // namespace

std::string UriHost::netLocation() const { return port.empty() ? host : host + ":" + port; }

std::optional<UriHost> hostOfUri(std::string_view uri) {
  const ParsedUri parsed(uri);
  if (!parsed.valid() || parsed.uri().hostText.first == nullptr) return std::nullopt;
  std::string host = textOf(parsed.uri().hostText);
  if (isIpLiteral(parsed.uri().hostData)) host = "[" + host + "]";
  return UriHost{host, textOf(parsed.uri().portText)};
}

bool isUri(std::string_view uri) { return ParsedUri(uri).valid(); }

std::optional<std::string> percentDecoded(std::string_view text) {
  std::string decoded;
  while (!text.empty()) {
    if (text.front() != '%') {
      decoded += text.front();
      text.remove_prefix(1);
      continue;
    }
    const std::optional<char> byte = byteOf(text.substr(1, 2));
    if (!byte) return std::nullopt;
    decoded += *byte;
    text.remove_prefix(3);
  }
  return base::utf16Length(decoded) ? std::optional(decoded) : std::nullopt;
}

}  // namespace kelm::wakeup
