// Host names, services, queues and the wake-up service in memory, and a clock that tests move.
// SPDX-License-Identifier: Apache-2.0
#include "platform/fake/fake_network.hpp"

#include <algorithm>
#include <utility>

namespace kelm::platform {
namespace {

class FakeService final : public DnsSdService {
 public:
  FakeService(FakeDnsSd& network, SteadyClock& clock, FakeDnsSd::Key key)
      : network_(network), clock_(clock), key_(std::move(key)) {}

  std::vector<sockaddr_storage> resolve(std::chrono::milliseconds limit) override {
    network_.resolved.push_back(key_);
    const auto found = network_.services.find(key_);
    if (found != network_.services.end()) return found->second;
    clock_.sleep(limit);
    return {};
  }

 private:
  FakeDnsSd& network_;
  SteadyClock& clock_;
  FakeDnsSd::Key key_;
};

class FakeConnection final : public WakeUpConnection {
 public:
  explicit FakeConnection(FakeWakeUpBus& bus) : bus_(bus) {}
  ~FakeConnection() override { bus_.callBack = nullptr; }
  bool isOpen() const override { return bus_.open; }
  std::string failure() const override { return bus_.open ? "" : "no such service"; }
  std::string refusal() const override { return {}; }

 private:
  FakeWakeUpBus& bus_;
};

}  // namespace

void FakeSteadyClock::sleep(std::chrono::nanoseconds duration) {
  time += duration;
  sleeps.push_back(duration);
  duringSleep();
}

std::optional<Ipv4Address> FakeNameLookup::firstIpv4(const std::string& host) {
  asked.push_back(host);
  const auto found = hosts.find(host);
  return found == hosts.end() ? std::nullopt : std::optional(found->second);
}

std::unique_ptr<DnsSdService> FakeDnsSd::create(const std::string& domain, const std::string& type,
                                                const std::string& name) {
  created.emplace_back(domain, type, name);
  if (!accepts(name)) return nullptr;
  return std::make_unique<FakeService>(*this, clock_, created.back());
}

FakeDestinations::~FakeDestinations() = default;

std::span<cups_dest_t> FakeDestinations::list() {
  ++listed;
  return destinations_;
}

char* FakeDestinations::keep(const char* text) {
  texts_.push_back(std::make_unique<std::string>(text));
  return texts_.back()->data();
}

void FakeDestinations::add(const char* name, const char* optionName, const char* value) {
  const auto known =
      std::find_if(destinations_.begin(), destinations_.end(),
                   [&](const cups_dest_t& each) { return each.name == std::string(name); });
  const auto index = static_cast<std::size_t>(known - destinations_.begin());
  if (known == destinations_.end()) {
    destinations_.push_back({keep(name), nullptr, 0, 0, nullptr});
    options_.push_back(std::make_unique<std::vector<cups_option_t>>());
  }
  if (value == nullptr) return;
  std::vector<cups_option_t>& options = *options_[index];
  options.push_back({keep(optionName), keep(value)});
  destinations_[index].options = options.data();
  destinations_[index].num_options = static_cast<int>(options.size());
}

void FakeDestinations::makeFirstDefault() { destinations_.front().is_default = 1; }

std::unique_ptr<WakeUpConnection> FakeWakeUpBus::send(const WakeUpRequest& request,
                                                      std::function<void()> finished) {
  requests.push_back(request);
  if (answersAtOnce) finished();
  callBack = std::move(finished);
  return std::make_unique<FakeConnection>(*this);
}

}  // namespace kelm::platform
