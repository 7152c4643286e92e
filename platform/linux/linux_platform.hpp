// The platform interfaces that need Linux itself.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/platform.hpp"

namespace kelm::platform::linux_platform {

class LinuxComputerName final : public ComputerName {
 public:
  std::string get() override;
};

class LinuxConsoleUser final : public ConsoleUser {
 public:
  std::string name() override;
};

class LinuxSteadyClock final : public SteadyClock {
 public:
  std::chrono::nanoseconds now() override;
  void sleep(std::chrono::nanoseconds time) override;
};

class LinuxNameLookup final : public NameLookup {
 public:
  std::optional<Ipv4Address> firstIpv4(const std::string& host) override;
};

class LinuxDnsSd final : public DnsSd {
 public:
  std::unique_ptr<DnsSdService> create(const std::string& domain, const std::string& type,
                                       const std::string& name) override;
};

class LinuxWakeUpBus final : public WakeUpBus {
 public:
  std::unique_ptr<WakeUpConnection> send(const WakeUpRequest& request,
                                         std::function<void()> finished) override;
};

}  // namespace kelm::platform::linux_platform
