// kelmctl address: the printer address that the filter finds in a device URI.
// SPDX-License-Identifier: Apache-2.0
#include <memory>
#include <ostream>
#include <string>

#include "ctl/commands.hpp"
#include "ctl/device_address.hpp"
#include "ctl/exit_status.hpp"
#include "ctl/json.hpp"
#include "ctl/message.hpp"
#include "ctl/safe_text.hpp"
#include "wakeup/xpc_call_object.hpp"

namespace kelm::ctl {
namespace {

struct Arguments {
  std::string uri;
  bool json = false;
};

void printJson(std::ostream& out, bool ipv6, const wakeup::Text& address) {
  const Json object{{"ipv6", ipv6}, {"address", address}};
  out << textOf(object, JsonLayout::kIndented) << '\n';
}

void printReadable(std::ostream& out, bool ipv6, const wakeup::Text& address) {
  if (address) out << safeText(*address) << (ipv6 ? " (IPv6)" : " (IPv4)") << '\n';
}

int showAddress(const Arguments& arguments, const Console& console) {
  const bool ipv6 = wakeup::XPCCallObject::isAddressTypeIPv6_(arguments.uri);
  const wakeup::Text address = wakeup::XPCCallObject::addressOf(arguments.uri);
  (arguments.json ? printJson : printReadable)(console.out, ipv6, address);
  if (address) {
    const std::string advice = wakeUpAdvice(arguments.uri, addressOfDevice(arguments.uri));
    if (!advice.empty()) complain(console, advice);
    return kExitDone;
  }
  if (arguments.uri.find(':') == std::string::npos) {
    return fail(console,
                '"' + arguments.uri + R"(" is not a URI; "lpstat -v" shows those of queues)");
  }
  return fail(console, "cannot find an address for \"" + arguments.uri +
                           "\"; check that it is a URI and that its host or service is known");
}

}  // namespace

Action declareAddress(ArgumentList& list) {
  auto arguments = std::make_shared<Arguments>();
  list.add("URI", arguments->uri, "A device URI, as lpstat -v shows it").valueName("").required();
  list.addFlag("--json", arguments->json, "One JSON object, for programs");
  return [arguments](const Console& console) { return showAddress(*arguments, console); };
}

}  // namespace kelm::ctl
