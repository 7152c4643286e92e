// A checked request to the service.
// SPDX-License-Identifier: Apache-2.0
#include "wolservice/wake_up_order.hpp"

#include <arpa/inet.h>

#include <algorithm>
#include <string_view>

#include "wolservice/network.hpp"

namespace kelm::wolservice {
namespace {

constexpr std::size_t kLongestHostName = 253;  // RFC 1035, without a dot at the end
constexpr std::size_t kLongestLabel = 63;
constexpr std::size_t kLongestZone = 15;  // an interface's name
constexpr std::size_t kLongestCommunity = 255;

bool isLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

// Removes the text before the next `separator`, and the separator, from the front of `rest`.
std::string_view nextPart(std::string_view& rest, char separator) {
  const std::size_t end = rest.find(separator);
  const std::string_view part = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  return part;
}

bool isIpv4(const std::string& text) {
  in_addr address{};
  return inet_pton(AF_INET, text.c_str(), &address) == 1;
}

bool isZone(std::string_view text) {
  return !text.empty() && text.size() <= kLongestZone &&
         std::all_of(text.begin(), text.end(),
                     [](char c) { return isLetterOrDigit(c) || c == '-' || c == '_' || c == '.'; });
}

bool isIpv6(const std::string& text) {
  const std::size_t zone = text.find('%');
  if (zone != std::string::npos && !isZone(std::string_view(text).substr(zone + 1))) return false;
  in6_addr address{};
  return inet_pton(AF_INET6, text.substr(0, zone).c_str(), &address) == 1;
}

bool isLabel(std::string_view text) {
  return !text.empty() && text.size() <= kLongestLabel && text.front() != '-' &&
         text.back() != '-' && std::all_of(text.begin(), text.end(), [](char c) {
           return isLetterOrDigit(c) || c == '-';
         });
}

bool isHostName(std::string_view text) {
  if (text.ends_with('.')) text.remove_suffix(1);
  if (text.empty() || text.size() > kLongestHostName || text.ends_with('.')) return false;
  while (!text.empty()) {
    if (!isLabel(nextPart(text, '.'))) return false;
  }
  return true;
}

bool isAddress(const std::string& text) {
  return text.find('\0') == std::string::npos && (isIpv4(text) || isIpv6(text) || isHostName(text));
}

std::optional<bool> switchOf(std::string_view text) {
  if (text == "YES") return true;
  if (text == "NO") return false;
  return std::nullopt;
}

}  // namespace

std::optional<WakeUpOrder> checkedOrder(const WakeUpArguments& arguments, std::string& problem) {
  const auto macAddress = base::macAddressOf(arguments.macAddress);
  const auto isWakeOnLan = switchOf(arguments.isWakeOnLan);
  const auto isOverRouter = switchOf(arguments.isOverRouter);
  if (!macAddress || base::isNone(*macAddress)) {
    problem = "the MAC address is not six hexadecimal parts, or is all zero";
  } else if (!isAddress(arguments.address)) {
    problem = "the printer's address is neither an IP address nor a host name";
  } else if (!mayBeAPrinter(arguments.address)) {
    problem = "no printer can have the address";
  } else if (arguments.snmpCommunity.size() > kLongestCommunity) {
    problem = "the SNMP community is longer than 255 bytes";
  } else if (!isWakeOnLan || !isOverRouter) {
    problem = "a switch is neither YES nor NO";
  } else {
    return WakeUpOrder{arguments.address, *macAddress, arguments.snmpCommunity, *isWakeOnLan,
                       *isOverRouter};
  }
  return std::nullopt;
}

}  // namespace kelm::wolservice
