// Service discovery on Linux: Avahi's client library asks its daemon over the bus.
// SPDX-License-Identifier: Apache-2.0
#include <avahi-client/client.h>
#include <avahi-client/lookup.h>
#include <avahi-common/address.h>
#include <avahi-common/domain.h>
#include <avahi-common/simple-watch.h>
#include <netinet/in.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/linux/linux_platform.hpp"
#include "platform/posix/bounded_call.hpp"

namespace kelm::platform::linux_platform {
namespace {

using Clock = std::chrono::steady_clock;
using posix_platform::resultBefore;

constexpr std::chrono::milliseconds kShutdownGrace{300};

struct Release {
  void operator()(AvahiSimplePoll* poll) const { avahi_simple_poll_free(poll); }
  void operator()(AvahiClient* client) const { avahi_client_free(client); }
  void operator()(AvahiServiceResolver* resolver) const { avahi_service_resolver_free(resolver); }
};

// The daemon's answer. `ended` is true once it is complete.
struct Answer {
  std::vector<sockaddr_storage> addresses;
  bool ended = false;
};

sockaddr_storage socketAddress(const AvahiAddress& address, std::uint16_t port) {
  sockaddr_in ipv4{};
  ipv4.sin_family = AF_INET;
  ipv4.sin_port = htons(port);
  ipv4.sin_addr.s_addr = address.data.ipv4.address;
  sockaddr_storage storage{};
  std::memcpy(&storage, &ipv4, sizeof ipv4);
  return storage;
}

void takeAnswer(AvahiServiceResolver* /*resolver*/, AvahiIfIndex /*interface*/,
                AvahiProtocol /*protocol*/, AvahiResolverEvent event, const char* /*name*/,
                const char* /*type*/, const char* /*domain*/, const char* /*host*/,
                const AvahiAddress* address, std::uint16_t port, AvahiStringList* /*text*/,
                AvahiLookupResultFlags /*flags*/, void* data) {
  auto& answer = *static_cast<Answer*>(data);
  answer.ended = true;
  if (event == AVAHI_RESOLVER_FOUND && address->proto == AVAHI_PROTO_INET) {
    answer.addresses.push_back(socketAddress(*address, port));
  }
}

// A daemon that has ended will not answer.
void watchDaemon(AvahiClient* /*client*/, AvahiClientState state, void* data) {
  if (state == AVAHI_CLIENT_FAILURE) static_cast<Answer*>(data)->ended = true;
}

// The daemon's own "not found" comes only after 5 seconds; the caller's limit is enforced here.
void waitForAnswer(AvahiSimplePoll* poll, const Answer& answer, Clock::time_point end) {
  while (!answer.ended) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
    if (left.count() <= 0) return;
    if (avahi_simple_poll_iterate(poll, static_cast<int>(left.count())) != 0) return;
  }
}

class AvahiService final : public DnsSdService {
 public:
  AvahiService(std::string domain, std::string type, std::string name)
      : domain_(std::move(domain)), type_(std::move(type)), name_(std::move(name)) {}

  // Avahi's library waits far longer than the limit for a daemon that hangs. A call that ends
  // within the limit gets some more time to disconnect.
  std::vector<sockaddr_storage> resolve(std::chrono::milliseconds limit) override {
    const Clock::time_point end = Clock::now() + limit;
    return resultBefore(end + kShutdownGrace, [service = *this, end] { return service.ask(end); })
        .value_or(std::vector<sockaddr_storage>{});
  }

 private:
  std::vector<sockaddr_storage> ask(Clock::time_point end) const {
    Answer answer;
    const std::unique_ptr<AvahiSimplePoll, Release> poll(avahi_simple_poll_new());
    if (!poll) return {};
    const std::unique_ptr<AvahiClient, Release> client(avahi_client_new(
        avahi_simple_poll_get(poll.get()), AvahiClientFlags{}, watchDaemon, &answer, nullptr));
    if (!client) return {};
    const std::unique_ptr<AvahiServiceResolver, Release> resolver(avahi_service_resolver_new(
        client.get(), AVAHI_IF_UNSPEC, AVAHI_PROTO_UNSPEC, name_.c_str(), type_.c_str(),
        domain_.c_str(), AVAHI_PROTO_INET, AvahiLookupFlags{}, takeAnswer, &answer));
    if (!resolver) return {};
    waitForAnswer(poll.get(), answer, end);
    return answer.addresses;
  }

  std::string domain_;
  std::string type_;
  std::string name_;
};

}  // namespace

// Refuses what the daemon would refuse, so that the daemon need not be asked.
std::unique_ptr<DnsSdService> LinuxDnsSd::create(const std::string& domain, const std::string& type,
                                                 const std::string& name) {
  if (avahi_is_valid_service_name(name.c_str()) == 0 ||
      avahi_is_valid_service_type_strict(type.c_str()) == 0 ||
      avahi_is_valid_domain_name(domain.c_str()) == 0) {
    return nullptr;
  }
  return std::make_unique<AvahiService>(domain, type, name);
}

}  // namespace kelm::platform::linux_platform
