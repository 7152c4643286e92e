// The printer's address, from the device URI of its queue.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/device_address.hpp"

#include <cups/http.h>
#include <netdb.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <string_view>

#include "wakeup/xpc_call_object.hpp"

namespace kelm::ctl {
namespace {

// The schemes whose URIs name a host; others ("usb", "file") have something else in its place.
constexpr std::string_view kNetworkSchemes[] = {"socket", "lpd", "ipp", "ipps", "http", "https"};

struct AddressListDeleter {
  void operator()(http_addrlist_t* list) const { httpAddrFreeList(list); }
};
using AddressList = std::unique_ptr<http_addrlist_t, AddressListDeleter>;

// The host of a network URI; empty without one.
std::string hostOf(const std::string& uri) {
  char scheme[HTTP_MAX_URI];
  char user[HTTP_MAX_URI];
  char host[HTTP_MAX_URI];
  char resource[HTTP_MAX_URI];
  int port = 0;
  if (httpSeparateURI(HTTP_URI_CODING_ALL, uri.c_str(), scheme, sizeof scheme, user, sizeof user,
                      host, sizeof host, &port, resource, sizeof resource) < HTTP_URI_STATUS_OK) {
    return {};
  }
  const bool network = std::find(std::begin(kNetworkSchemes), std::end(kNetworkSchemes),
                                 std::string_view(scheme)) != std::end(kNetworkSchemes);
  return network ? host : "";
}

// Not httpAddrString, which writes IPv6 addresses as URIs have them.
std::string lookUp(const std::string& host, int family) {
  const AddressList list(httpAddrGetList(host.c_str(), family, nullptr));
  char text[HTTP_MAX_HOST] = "";
  if (list != nullptr) {
    getnameinfo(&list->addr.addr, static_cast<socklen_t>(httpAddrLength(&list->addr)), text,
                sizeof text, nullptr, 0, NI_NUMERICHOST);
  }
  return text;
}

}  // namespace

std::string addressOfDevice(const std::string& deviceUri) {
  if (deviceUri.starts_with("dnssd://")) {
    return wakeup::XPCCallObject::ConvertDeviceURItoIPAddress_(deviceUri).value_or("");
  }
  std::string host = hostOf(deviceUri);
  if (host.empty() || host.find(':') != std::string::npos) return host;
  const std::string address = lookUp(host, AF_INET);
  return address.empty() ? lookUp(host, AF_INET6) : address;
}

}  // namespace kelm::ctl
