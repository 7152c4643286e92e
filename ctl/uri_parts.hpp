// The parts of a URI.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::ctl {

struct UriParts {
  std::string scheme;  // empty: not a URI
  std::string host;    // a zone of IPv6 follows a "%"
  std::string resource;
  int port = 0;  // when the URI has none: the scheme's own, as far as libcups knows it
};

UriParts partsOf(const std::string& uri);

}  // namespace kelm::ctl
