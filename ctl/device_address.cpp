// The printer's address, from the device URI of its queue.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/device_address.hpp"

#include <cups/http.h>
#include <netdb.h>

#include <algorithm>
#include <iterator>
#include <string_view>

#include "ctl/address_list.hpp"
#include "ctl/uri_parts.hpp"
#include "wakeup/xpc_call_object.hpp"

namespace kelm::ctl {
namespace {

// The schemes whose URIs name a host; others ("usb", "file") have something else in its place.
struct NetworkScheme {
  std::string_view name;
  int port;
};
constexpr NetworkScheme kNetworkSchemes[] = {{"socket", 9100}, {"lpd", 515}, {"ipp", 631},
                                             {"ipps", 631},    {"http", 80}, {"https", 443}};

struct NetworkUri {
  std::string scheme;
  std::string host;  // empty: not a network URI; an IPv6 zone follows a "%"
  std::string resource;
  bool hasOwnPort = false;  // one other than the scheme's default
};

NetworkUri networkUriOf(const std::string& uri) {
  const UriParts parts = partsOf(uri);
  const auto known =
      std::find_if(std::begin(kNetworkSchemes), std::end(kNetworkSchemes),
                   [&](const NetworkScheme& each) { return each.name == parts.scheme; });
  if (known == std::end(kNetworkSchemes)) return {};
  return {parts.scheme, parts.host, parts.resource, parts.port != known->port};
}

// If there is a second colon, the wake-up expects an IPv6 address. It reads a zone only after "+".
std::string workingUri(const NetworkUri& uri) {
  const std::string resource = uri.resource == "/" ? "" : uri.resource;
  if (uri.host.find(':') == std::string::npos) {
    if (uri.hasOwnPort) return "a device URI with a port cannot work";
    return "\"" + uri.scheme + "://" + uri.host + resource + "\" works";
  }
  std::string host = uri.host;
  const std::size_t zone = host.find('%');
  if (zone != std::string::npos) host = "v1." + host.replace(zone, 1, "+");
  if (uri.hasOwnPort) return "\"[" + host + "]\" as its host works";
  return "\"" + uri.scheme + "://[" + host + "]" + (resource.empty() ? "/" : resource) + "\" works";
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

std::string hostOfDevice(const std::string& deviceUri) { return networkUriOf(deviceUri).host; }

std::string addressOfHost(const std::string& host) {
  const std::string address = lookUp(host, AF_INET);
  return address.empty() ? lookUp(host, AF_INET6) : address;
}

std::string addressOfDevice(const std::string& deviceUri) {
  if (deviceUri.starts_with("dnssd://")) {
    return wakeup::XPCCallObject::ConvertDeviceURItoIPAddress_(deviceUri).value_or("");
  }
  std::string host = hostOfDevice(deviceUri);
  if (host.empty() || host.find(':') != std::string::npos) return host;
  return addressOfHost(host);
}

std::string wakeUpAdvice(const std::string& deviceUri, const std::string& address) {
  const NetworkUri uri = networkUriOf(deviceUri);
  if (uri.host.empty() || address.empty()) return {};
  const std::string taken = wakeup::XPCCallObject::addressOf(deviceUri).value_or("");
  // An IPv6 address is not looked up, so it may be written differently.
  if (taken == address || (taken == uri.host && !taken.empty())) return {};
  return "the device URI \"" + deviceUri + "\" makes jobs take \"" + taken +
         "\" for the address of the printer to wake; " + workingUri(uri);
}

}  // namespace kelm::ctl
