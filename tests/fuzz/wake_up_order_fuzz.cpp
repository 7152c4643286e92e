// Any arguments of a wake-up request, one per line: each address that is accepted can be looked up
// and written to the journal.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "tests/fuzz/fuzz_target.hpp"
#include "wolservice/wake_up_order.hpp"

FUZZ_TARGET(wake_up_order) {
  std::istringstream lines(std::string(data, data + size));
  kelm::wolservice::WakeUpArguments arguments;
  for (std::string* each : {&arguments.address, &arguments.macAddress, &arguments.snmpCommunity,
                            &arguments.isWakeOnLan, &arguments.isOverRouter}) {
    std::getline(lines, *each);
  }
  std::string problem;
  const auto order = kelm::wolservice::checkedOrder(arguments, problem);
  if (order.has_value() != problem.empty()) std::abort();
  if (!order) return 0;
  const std::string& address = order->address;
  const bool printable =
      std::all_of(address.begin(), address.end(), [](char c) { return c > ' ' && c < 0x7F; });
  if (address.empty() || address.size() > 254 || !printable) std::abort();
  return 0;
}
