// Any device URI: a resolver can be given each name that is looked up. The result is an address, or
// for a URI that counts as IPv6, a text without "+".
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/fake/fake_platform.hpp"
#include "tests/fuzz/fuzz_target.hpp"
#include "wakeup/xpc_call_object.hpp"

namespace {

using kelm::tests::expect;

bool canBeAHost(const std::string& name) {
  return name.size() < 1024 && name.find(':') == std::string::npos &&
         std::all_of(name.begin(), name.end(), [](char c) { return c >= 0; });
}

}  // namespace

FUZZ_TARGET(device_uri) {
  using kelm::wakeup::XPCCallObject;
  kelm::platform::FakePlatform network;
  network.nameLookup.hosts["10.0.0.5"] = {10, 0, 0, 5};
  const std::string uri(data, data + size);
  const kelm::wakeup::Text ipv4 = XPCCallObject::ConvertDeviceURItoIPAddress_(uri);
  expect(!ipv4 || *ipv4 == "10.0.0.5");
  expect(std::all_of(network.nameLookup.asked.begin(), network.nameLookup.asked.end(), canBeAHost));
  expect(network.dnsSd.resolved.size() == network.steadyClock.sleeps.size());
  const kelm::wakeup::Text ipv6 = XPCCallObject::ConvertDeviceURItoIPAddressV6_(uri);
  expect(ipv6 && ipv6->find('+') == std::string::npos && ipv6->size() <= size);
  return 0;
}
