// The parts of a URI.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/uri_parts.hpp"

#include <cups/http.h>

namespace kelm::ctl {

UriParts partsOf(const std::string& uri) {
  char scheme[HTTP_MAX_URI];
  char user[HTTP_MAX_URI];
  char host[HTTP_MAX_URI];
  char resource[HTTP_MAX_URI];
  int port = 0;
  if (httpSeparateURI(HTTP_URI_CODING_ALL, uri.c_str(), scheme, sizeof scheme, user, sizeof user,
                      host, sizeof host, &port, resource, sizeof resource) < HTTP_URI_STATUS_OK) {
    return {};
  }
  return {scheme, host, resource, port};
}

}  // namespace kelm::ctl
