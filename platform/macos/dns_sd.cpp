// Service discovery on macOS: the system's daemon, through its own library (dns_sd.h). Avahi has
// the same interface, so this file is also built and tested on Linux.
// SPDX-License-Identifier: Apache-2.0
#include <dns_sd.h>
#include <netinet/in.h>
#include <poll.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>
#include <utility>

#include "platform/macos/macos_platform.hpp"
#include "platform/posix/bounded_call.hpp"

namespace kelm::platform::macos_platform {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kShutdownGrace{300};

// Cancels a question to the daemon.
struct Cancel {
  void operator()(DNSServiceRef question) const { DNSServiceRefDeallocate(question); }
};
using Question = std::unique_ptr<std::remove_pointer_t<DNSServiceRef>, Cancel>;

// Where the service is. `ended` is true once the daemon has said where it is, or that it does not
// know.
struct Place {
  std::string host;
  std::uint32_t interface = 0;
  std::uint16_t port = 0;  // in network byte order
  bool ended = false;
};

struct Answer {
  std::vector<sockaddr_storage> addresses;
  std::uint16_t port = 0;  // in network byte order
  bool ended = false;
};

sockaddr_storage socketAddress(const void* ipv4, std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = port;
  std::memcpy(&address.sin_addr, ipv4, sizeof address.sin_addr);
  sockaddr_storage storage{};
  std::memcpy(&storage, &address, sizeof address);
  return storage;
}

// The type of the text record is not the same in all versions of the header.
constexpr auto kTakePlace = [](DNSServiceRef /*question*/, DNSServiceFlags /*flags*/,
                               std::uint32_t interface, DNSServiceErrorType error,
                               const char* /*name*/, const char* host, std::uint16_t port,
                               std::uint16_t /*length*/, const auto* /*text*/, void* data) {
  auto& place = *static_cast<Place*>(data);
  place.ended = true;
  if (error != kDNSServiceErr_NoError) return;
  place.host = host;
  place.interface = interface;
  place.port = port;
};

void DNSSD_API takeAddress(DNSServiceRef /*question*/, DNSServiceFlags flags,
                           std::uint32_t /*interface*/, DNSServiceErrorType error,
                           const char* /*name*/, std::uint16_t /*type*/, std::uint16_t /*class*/,
                           std::uint16_t length, const void* content, std::uint32_t /*ttl*/,
                           void* data) {
  auto& answer = *static_cast<Answer*>(data);
  if (error == kDNSServiceErr_NoError && (flags & kDNSServiceFlagsAdd) == 0) return;
  answer.ended = true;
  if (error == kDNSServiceErr_NoError && length == sizeof(in_addr)) {
    answer.addresses.push_back(socketAddress(content, answer.port));
  }
}

// Handles what the daemon sends until `ended`; false when it is gone or late.
bool waitForAnswer(DNSServiceRef question, const bool& ended, Clock::time_point end) {
  pollfd source{DNSServiceRefSockFD(question), POLLIN, 0};
  while (!ended) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
    if (left.count() <= 0) return false;
    const int ready = poll(&source, 1, static_cast<int>(left.count()));
    if (ready < 0 && errno != EINTR) return false;
    if (ready > 0 && DNSServiceProcessResult(question) != kDNSServiceErr_NoError) return false;
  }
  return true;
}

class DaemonService final : public DnsSdService {
 public:
  DaemonService(std::string domain, std::string type, std::string name)
      : domain_(std::move(domain)), type_(std::move(type)), name_(std::move(name)) {}

  // The library waits for a daemon that hangs. A call that keeps the limit gets some more time to
  // cancel its question.
  std::vector<sockaddr_storage> resolve(std::chrono::milliseconds limit) override {
    const Clock::time_point end = Clock::now() + limit;
    return posix_platform::resultBefore(end + kShutdownGrace,
                                        [service = *this, end] { return service.ask(end); })
        .value_or(std::vector<sockaddr_storage>{});
  }

 private:
  std::vector<sockaddr_storage> ask(Clock::time_point end) const {
    const Place place = findPlace(end);
    if (place.host.empty()) return {};
    Answer answer;
    answer.port = place.port;
    DNSServiceRef started = nullptr;
    if (DNSServiceQueryRecord(&started, 0, place.interface, place.host.c_str(), kDNSServiceType_A,
                              kDNSServiceClass_IN, takeAddress,
                              &answer) != kDNSServiceErr_NoError) {
      return {};
    }
    const Question question(started);
    waitForAnswer(question.get(), answer.ended, end);
    return answer.addresses;
  }

  Place findPlace(Clock::time_point end) const {
    Place place;
    DNSServiceRef started = nullptr;
    if (DNSServiceResolve(&started, 0, kDNSServiceInterfaceIndexAny, name_.c_str(), type_.c_str(),
                          domain_.c_str(), kTakePlace, &place) != kDNSServiceErr_NoError) {
      return place;
    }
    const Question question(started);
    waitForAnswer(question.get(), place.ended, end);
    return place;
  }

  std::string domain_;
  std::string type_;
  std::string name_;
};

// "_NAME._tcp" or "_NAME._udp". The library itself accepts more, and Avahi's even more than
// macOS's.
bool isServiceType(std::string_view type) {
  constexpr std::size_t kProtocolLength = 5;
  if (!type.starts_with('_') || !(type.ends_with("._tcp") || type.ends_with("._udp"))) return false;
  const std::string_view name = type.substr(1, type.size() - 1 - kProtocolLength);
  return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
  });
}

}  // namespace

// Refuses what cannot be the name of a service, so that the daemon need not be asked.
std::unique_ptr<DnsSdService> MacosDnsSd::create(const std::string& domain, const std::string& type,
                                                 const std::string& name) {
  std::array<char, kDNSServiceMaxDomainName> full{};
  if (name.empty() || domain.empty() || !isServiceType(type) ||
      DNSServiceConstructFullName(full.data(), name.c_str(), type.c_str(), domain.c_str()) !=
          kDNSServiceErr_NoError) {
    return nullptr;
  }
  return std::make_unique<DaemonService>(domain, type, name);
}

}  // namespace kelm::platform::macos_platform
