// Host names, services, queues and the wake-up service in memory, and a clock that tests move.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "platform/destinations.hpp"
#include "platform/dns_sd.hpp"
#include "platform/name_lookup.hpp"
#include "platform/steady_clock.hpp"
#include "platform/wake_up_bus.hpp"

namespace kelm::platform {

// Time passes only in sleep(), which returns at once.
class FakeSteadyClock final : public SteadyClock {
 public:
  std::chrono::nanoseconds now() override { return time; }
  void sleep(std::chrono::nanoseconds duration) override;

  std::chrono::nanoseconds time{};
  std::vector<std::chrono::nanoseconds> sleeps;
  std::function<void()> duringSleep = [] {};
};

class FakeNameLookup final : public NameLookup {
 public:
  std::optional<Ipv4Address> firstIpv4(const std::string& host) override;

  std::map<std::string, Ipv4Address> hosts;
  std::vector<std::string> asked;
};

// Resolving a missing service takes the whole limit.
class FakeDnsSd final : public DnsSd {
 public:
  using Key = std::tuple<std::string, std::string, std::string>;  // domain, type, name

  explicit FakeDnsSd(SteadyClock& clock) : clock_(clock) {}
  std::unique_ptr<DnsSdService> create(const std::string& domain, const std::string& type,
                                       const std::string& name) override;

  std::map<Key, std::vector<sockaddr_storage>> services;
  std::vector<Key> created;  // every attempt, refused ones too
  std::vector<Key> resolved;
  std::function<bool(const std::string& name)> accepts = [](const std::string&) { return true; };

 private:
  SteadyClock& clock_;
};

class FakeDestinations final : public Destinations {
 public:
  FakeDestinations() = default;
  ~FakeDestinations() override;
  FakeDestinations(const FakeDestinations&) = delete;
  FakeDestinations& operator=(const FakeDestinations&) = delete;

  std::span<cups_dest_t> list() override;

  // Adds an option to a queue, which is made when it is missing; a null value adds no option.
  // Options may repeat.
  void add(const char* name, const char* optionName, const char* value);
  // The first queue added becomes the default one.
  void makeFirstDefault();

  int listed = 0;  // how often the list was asked for

 private:
  std::vector<cups_dest_t> destinations_;
  std::vector<std::unique_ptr<std::vector<cups_option_t>>> options_;
  std::vector<std::unique_ptr<std::string>> texts_;

  char* keep(const char* text);
};

class FakeWakeUpBus final : public WakeUpBus {
 public:
  std::unique_ptr<WakeUpConnection> send(const WakeUpRequest& request,
                                         std::function<void()> finished) override;

  bool open = true;  // whether the service can be reached
  bool answersAtOnce = false;
  std::vector<WakeUpRequest> requests;
  std::function<void()> callBack;  // of the newest request, while its connection lives
};

}  // namespace kelm::platform
