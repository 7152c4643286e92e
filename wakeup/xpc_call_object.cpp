// One wake-up of the printer before a job: its address, the request, and the wait for the
// call-back.
// SPDX-License-Identifier: Apache-2.0
#include "wakeup/xpc_call_object.hpp"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <vector>

#include "platform/platform.hpp"
#include "wakeup/uri.hpp"
#include "wakeup/wake_up_settings.hpp"

namespace kelm::wakeup {
namespace {

constexpr std::int32_t kBonjour = 1;
constexpr std::chrono::milliseconds kResolveLimit{3000};
constexpr std::size_t kHostBufferSize = 1024;       // bytes, terminator included
constexpr std::size_t kMinHostParts = 4;            // name, two of the type, domain
constexpr std::size_t kAddressInSocketAddress = 4;  // where an IPv4 socket address has its address

struct Scheme {
  std::string_view prefix;
  std::int32_t code;
};
constexpr Scheme kSchemes[] = {{"dnssd://", kBonjour}, {"lpd://", 0}, {"pap://", 2}, {"usb://", 3}};

std::string replaced(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  for (std::size_t hit = 0; (hit = text.find(from)) != std::string_view::npos;) {
    result.append(text.substr(0, hit)).append(to);
    text.remove_prefix(hit + from.size());
  }
  return result.append(text);
}

// Decodes only these three escapes, only in upper case.
std::string unescaped(std::string_view uri) {
  return replaced(replaced(replaced(uri, "%3A", ":"), "%5B", "["), "%5D", "]");
}

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

std::string dottedQuad(const platform::Ipv4Address& address) {
  std::array<char, 255> text{};
  std::snprintf(text.data(), text.size(), "%d.%d.%d.%d", address[0], address[1], address[2],
                address[3]);
  return text.data();
}

// Reads the first address as an IPv4 one, whatever its family.
Text dottedQuad(const std::vector<sockaddr_storage>& addresses) {
  if (addresses.empty()) return std::nullopt;
  std::array<std::uint8_t, sizeof(sockaddr_storage)> bytes{};
  std::memcpy(bytes.data(), &addresses.front(), bytes.size());
  platform::Ipv4Address address{};
  std::memcpy(address.data(), bytes.data() + kAddressInSocketAddress, address.size());
  return dottedQuad(address);
}

std::unique_ptr<platform::DnsSdService> createService(const std::string& domain,
                                                      const std::string& type,
                                                      const std::string& name) {
  platform::DnsSd& network = *platform::platform().dnsSd;
  if (const Text decoded = percentDecoded(name)) {
    if (auto service = network.create(domain, type, *decoded)) return service;
  }
  // The second attempt uses the name undecoded: it may contain a plain percent sign.
  return network.create(domain, type, name);
}

// The service whose name has the parts up to and with `last`.
Text resolveSplit(const std::vector<std::string>& parts, std::size_t last) {
  std::string name = parts[0];
  for (std::size_t i = 1; i <= last; ++i) name.append(".").append(parts[i]);
  const std::string type = parts[last + 1] + "." + parts[last + 2];
  const auto service = createService(parts[last + 3], type, name);
  return service ? dottedQuad(service->resolve(kResolveLimit)) : std::nullopt;
}

// A service's name may contain dots, so each place where it may end is tried, from the left.
Text resolveService(const std::string& host) {
  const std::vector<std::string> parts = split(host, '.');
  for (std::size_t last = 0; last + kMinHostParts <= parts.size(); ++last) {
    if (Text address = resolveSplit(parts, last)) return address;
  }
  return std::nullopt;
}

bool isAscii(std::string_view text) {
  for (const char c : text) {
    if (static_cast<unsigned char>(c) > 0x7F) return false;
  }
  return true;
}

constexpr std::size_t kMacParts = 6;
constexpr int kMaxSleeps = 240;
constexpr std::chrono::seconds kSleep{1};

std::vector<std::string_view> partsOf(std::string_view macAddress) {
  std::vector<std::string_view> parts;
  for (std::size_t end = 0; end != std::string_view::npos;) {
    end = macAddress.find(':');
    parts.push_back(macAddress.substr(0, end));
    if (end != std::string_view::npos) macAddress.remove_prefix(end + 1);
  }
  return parts;
}

// Whether the hexadecimal number at the front of `part`, after white space and "0x", is not zero. A
// number that is too large counts as the largest.
bool isNonZeroHexNumber(std::string_view part) {
  part.remove_prefix(std::min(part.find_first_not_of(" \t\r\n"), part.size()));
  if (part.starts_with("0x") || part.starts_with("0X")) part.remove_prefix(2);
  const std::size_t zeros = part.find_first_not_of('0');
  constexpr std::string_view kDigits = "123456789abcdefABCDEF";
  return zeros != std::string_view::npos && kDigits.find(part[zeros]) != std::string_view::npos;
}

}  // namespace

std::int32_t XPCCallObject::countCharacter_by_(const Text& text, std::string_view part) {
  if (!text) return -1;
  if (part.empty()) return 0;
  std::int32_t count = 0;
  for (std::size_t at = 0; (at = text->find(part, at)) != std::string::npos; at += part.size()) {
    ++count;
  }
  return count;
}

bool XPCCallObject::isAddressTypeIPv6_(const Text& uri) {
  return uri && countCharacter_by_(unescaped(*uri), ":") > 1;
}

std::int32_t XPCCallObject::iGetProtocolByUrl_(const Text& uri) {
  if (!uri || !isUri(*uri)) return -1;
  for (const Scheme& scheme : kSchemes) {
    if (uri->starts_with(scheme.prefix)) return scheme.code;
  }
  return -1;
}

Text XPCCallObject::ConvertDeviceURItoIPAddress_(const Text& uri) {
  const std::optional<UriHost> location = uri ? hostOfUri(*uri) : std::nullopt;
  if (!location) return std::nullopt;
  if (iGetProtocolByUrl_(uri) != kBonjour) {
    return ChangeNetLocationToIPAddress_(location->netLocation());
  }
  return ChangeNetLocationToIPAddress_(resolveService(location->host));
}

Text XPCCallObject::ConvertDeviceURItoIPAddressV6_(const Text& uri) {
  if (!uri) return std::nullopt;
  std::string text = unescaped(*uri);
  if (const auto open = text.find('['); open != std::string::npos) text.erase(0, open + 1);
  if (const auto close = text.find(']'); close != std::string::npos) text.erase(close);
  if (const auto version = text.find("v1."); version != std::string::npos) {
    text.erase(0, version + 3);
  }
  return replaced(text, "+", "%");
}

Text XPCCallObject::ChangeNetLocationToIPAddress_(const Text& netLocation) {
  if (!netLocation || netLocation->empty()) return std::nullopt;
  if (netLocation->size() >= kHostBufferSize || !isAscii(*netLocation)) return std::nullopt;
  const std::string host = netLocation->substr(0, netLocation->find(':'));
  const auto address = platform::platform().nameLookup->firstIpv4(host);
  return address ? Text(dottedQuad(*address)) : std::nullopt;
}

Text XPCCallObject::addressOf(const Text& uri) {
  return isAddressTypeIPv6_(uri) ? ConvertDeviceURItoIPAddressV6_(uri)
                                 : ConvertDeviceURItoIPAddress_(uri);
}

bool XPCCallObject::isEnableWakeOnLan_macAddress_(bool isWakeOnLan, const Text& macAddress) {
  if (!isWakeOnLan || !macAddress || macAddress->empty()) return false;
  const std::vector<std::string_view> parts = partsOf(*macAddress);
  bool enabled = false;
  for (std::size_t i = 0; i < kMacParts; ++i) {
    if (isNonZeroHexNumber(parts.at(i))) enabled = true;
  }
  return enabled;
}

void XPCCallObject::doWakeOnLanXPC_job_data_(const Text& printer, const job::PrintJobData* job) {
  const WakeUpSettings settings = wakeUpSettingsOf(job != nullptr ? job->ppd : nullptr);
  if (!isEnableWakeOnLan_macAddress_(settings.isWakeOnLan, settings.macAddress)) return;
  isXPCWait = true;
  const Text uri = deviceUriOf(printer);
  sendAndWait(requestFor(settings, uri ? addressOf(uri) : std::nullopt));
}

void XPCCallObject::sendAndWait(const platform::WakeUpRequest& request) {
  const auto connection =
      platform::platform().wakeUpBus->send(request, [this] { callFinishedXPCProcess(); });
  waitForCallBack(*connection);
}

void XPCCallObject::waitForCallBack(const platform::WakeUpConnection& connection) const {
  const platform::Platform& system = platform::platform();
  for (int sleeps = 0; isXPCWait && connection.isOpen() && sleeps < kMaxSleeps; ++sleeps) {
    if (system.termination->requested()) return;
    system.steadyClock->sleep(kSleep);
  }
}

void callWoLXPC(int argc, char* argv[], const job::PrintJobData* job) {
  const Text printer = argc >= 1 ? Text(argv[0]) : std::nullopt;
  XPCCallObject call;
  call.doWakeOnLanXPC_job_data_(printer, job);
}

}  // namespace kelm::wakeup
