// The table of device URIs in docs/wake-up-bus.md states the addresses that result from them.
// SPDX-License-Identifier: Apache-2.0
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>

#include <cstring>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include "platform/fake/fake_platform.hpp"
#include "wakeup/xpc_call_object.hpp"

namespace kelm::wakeup {
namespace {

struct Row {
  std::string uri;
  std::string address;
};

std::vector<Row> rowsOf(const char* page) {
  const std::regex row("\\| (?:`([^`]+)`|an empty one) \\| (?:`([^`]+)`|none) \\|.*");
  std::ifstream file(page);
  std::vector<Row> rows;
  bool isInTable = false;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with('#')) isInTable = line == "### Addresses of device URIs";
    std::smatch cells;
    if (isInTable && std::regex_match(line, cells, row)) rows.push_back({cells[1], cells[2]});
  }
  return rows;
}

sockaddr_storage ipv4(const char* address) {
  sockaddr_in ip{};
  ip.sin_family = AF_INET;
  inet_pton(AF_INET, address, &ip.sin_addr);
  sockaddr_storage storage{};
  std::memcpy(&storage, &ip, sizeof ip);
  return storage;
}

TEST(TableOfDeviceUris, SaysWhatComesOut) {
  platform::FakePlatform network;
  network.nameLookup.hosts["10.0.0.5"] = {10, 0, 0, 5};
  network.nameLookup.hosts["192.0.2.9"] = {192, 0, 2, 9};
  network.nameLookup.hosts["printer.example"] = {192, 0, 2, 200};
  network.dnsSd.services[{"local", "_pdl-datastream._tcp", "My.Printer"}] = {ipv4("192.0.2.9")};
  const std::vector<Row> rows = rowsOf(KELM_WAKE_UP_PAGE);
  EXPECT_GE(rows.size(), 27U);
  for (const Row& row : rows) {
    const bool isIPv6 = XPCCallObject::isAddressTypeIPv6_(row.uri);
    const Text address = isIPv6 ? XPCCallObject::ConvertDeviceURItoIPAddressV6_(row.uri)
                                : XPCCallObject::ConvertDeviceURItoIPAddress_(row.uri);
    EXPECT_EQ(address.value_or(""), row.address) << row.uri;
  }
}

}  // namespace
}  // namespace kelm::wakeup
