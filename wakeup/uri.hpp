// The parts of a device URI that name the printer (RFC 3986).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelm::wakeup {

struct UriHost {
  std::string host;  // as written: escapes are kept, an IP literal has its brackets
  std::string port;  // empty when the URI has none

  // The host, and ":" and the port when there is one, without user information.
  std::string netLocation() const;
};

// The host of `uri`; nothing when `uri` is not a URI or has no host.
std::optional<UriHost> hostOfUri(std::string_view uri);

// Whether `uri` follows the grammar of a URI or a relative reference.
bool isUri(std::string_view uri);

// `text` with every percent escape decoded; nothing when an escape lacks its two hexadecimal digits
// or the result is not UTF-8.
std::optional<std::string> percentDecoded(std::string_view text);

}  // namespace kelm::wakeup
