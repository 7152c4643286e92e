// A platform in memory, for tests: the program sees what the test sets.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "platform/fake/fake_network.hpp"
#include "platform/platform.hpp"

namespace kelm::platform {

class FakeJobLanguage final : public JobLanguage {
 public:
  void prefer(const char* language) override { preferred = language; }
  std::string preferred;  // the last language given; empty when none was
};

class FakeWallClock final : public WallClock {
 public:
  std::tm localTime() override { return now; }
  std::tm now{};
};

class FakeFileRoot final : public FileRoot {
 public:
  std::string locate(std::string_view absolutePath) const override {
    return root + std::string(absolutePath);
  }
  std::string root = "/nonexistent";  // a directory of the test, without a trailing slash
};

class FakeSystemLog final : public SystemLog {
 public:
  void error(const std::string& message) override { messages.push_back(message); }
  std::vector<std::string> messages;  // in the order in which they were written
};

class FakeComputerName final : public ComputerName {
 public:
  std::string get() override { return computer; }
  std::string computer;
};

class FakeConsoleUser final : public ConsoleUser {
 public:
  std::string name() override { return user; }
  std::string user;
};

class FakeTermination final : public Termination {
 public:
  bool requested() override { return asked; }
  bool asked = false;
};

class FakePreferredLanguages final : public PreferredLanguages {
 public:
  std::vector<std::string> tags() override { return preferred; }
  std::vector<std::string> preferred = {"en"};
};

class FakeHomeDirectory final : public HomeDirectory {
 public:
  std::string path() override { return home; }
  std::string home = "/home/tester";
};

// Replaces the process's platform for its lifetime.
class FakePlatform {
 public:
  FakePlatform();

  FakeJobLanguage jobLanguage;
  FakeWallClock wallClock;
  FakeFileRoot fileRoot;
  FakeSystemLog systemLog;
  FakeComputerName computerName;
  FakeConsoleUser consoleUser;
  FakePreferredLanguages preferredLanguages;
  FakeHomeDirectory homeDirectory;
  FakeSteadyClock steadyClock;
  FakeTermination termination;
  FakeNameLookup nameLookup;
  FakeDnsSd dnsSd{steadyClock};
  FakeDestinations destinations;
  FakeWakeUpBus wakeUpBus;

 private:
  Platform set_;
  ScopedPlatform scope_;
};

}  // namespace kelm::platform
