// The table of device URIs in docs/wake-up-bus.md states the addresses that result from them.
// SPDX-License-Identifier: Apache-2.0
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>

#include <cstring>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/fake/fake_platform.hpp"
#include "wakeup/xpc_call_object.hpp"

namespace kelm::wakeup {
namespace {

struct Row {
  std::string uri;
  std::string address;
};

// What is between the back quotes; `nothing` stands for an empty text.
std::optional<std::string> valueIn(std::string_view cell, std::string_view nothing) {
  if (cell == nothing) return "";
  if (cell.size() < 3 || cell.front() != '`' || cell.back() != '`') return std::nullopt;
  return std::string(cell.substr(1, cell.size() - 2));
}

std::optional<Row> rowIn(std::string_view line) {
  const std::size_t second = line.find(" | ");
  const std::size_t end = line.find(" |", second + 3);
  if (!line.starts_with("| ") || second == line.npos || end == line.npos) return std::nullopt;
  const auto uri = valueIn(line.substr(2, second - 2), "an empty one");
  const auto address = valueIn(line.substr(second + 3, end - second - 3), "none");
  return uri && address ? std::optional(Row{*uri, *address}) : std::nullopt;
}

// The rows after the table's heading and the line below it. A row that cannot be read is a failure.
std::vector<Row> rowsOf(const char* page) {
  std::ifstream file(page);
  std::vector<Row> rows;
  bool isInSection = false;
  bool isInTable = false;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with('#')) isInSection = line == "### Addresses of device URIs";
    if (isInSection && isInTable && line.starts_with('|')) {
      const std::optional<Row> row = rowIn(line);
      EXPECT_TRUE(row) << line;
      if (row) rows.push_back(*row);
    }
    isInTable = isInSection && (isInTable || line.starts_with("|---"));
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
  EXPECT_FALSE(rows.empty());
  for (const Row& row : rows) {
    const bool isIPv6 = XPCCallObject::isAddressTypeIPv6_(row.uri);
    const Text address = isIPv6 ? XPCCallObject::ConvertDeviceURItoIPAddressV6_(row.uri)
                                : XPCCallObject::ConvertDeviceURItoIPAddress_(row.uri);
    EXPECT_EQ(address.value_or(""), row.address) << row.uri;
  }
}

}  // namespace
}  // namespace kelm::wakeup
