// The platform interfaces that are macOS's own.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/platform.hpp"

namespace kelm::platform::macos_platform {

// libcups localises in the first language of the preference "AppleLanguages".
class MacosJobLanguage final : public JobLanguage {
 public:
  void prefer(const char* language) override;
};

// The name that a user gives the computer, not its host name.
class MacosComputerName final : public ComputerName {
 public:
  std::string get() override;
};

class MacosConsoleUser final : public ConsoleUser {
 public:
  std::string name() override;
};

class MacosSteadyClock final : public SteadyClock {
 public:
  std::chrono::nanoseconds now() override;
  void sleep(std::chrono::nanoseconds time) override;
};

class MacosNameLookup final : public NameLookup {
 public:
  std::optional<Ipv4Address> firstIpv4(const std::string& host) override;
};

class MacosDnsSd final : public DnsSd {
 public:
  std::unique_ptr<DnsSdService> create(const std::string& domain, const std::string& type,
                                       const std::string& name) override;
};

class MacosWakeUpBus final : public WakeUpBus {
 public:
  std::unique_ptr<WakeUpConnection> send(const WakeUpRequest& request,
                                         std::function<void()> finished) override;
};

}  // namespace kelm::platform::macos_platform
