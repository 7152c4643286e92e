// The platform interfaces on Linux.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/platform.hpp"

namespace kelm::platform::linux_platform {

// libcups localises in the locale that setlocale has set, else in LC_MESSAGES, LC_ALL or LANG of
// the environment, in this order: the job's language becomes LC_MESSAGES, and LC_ALL is removed.
class LinuxJobLanguage final : public JobLanguage {
 public:
  void prefer(const char* language) override;
};

class LinuxWallClock final : public WallClock {
 public:
  std::tm localTime() override;
};

class LinuxFileRoot final : public FileRoot {
 public:
  std::string locate(std::string_view absolutePath) const override;
};

// gettext's language priority list ("LANGUAGE"), then the locale for messages.
class LinuxPreferredLanguages final : public PreferredLanguages {
 public:
  std::vector<std::string> tags() override;
};

class LinuxHomeFolder final : public HomeFolder {
 public:
  std::string path() override;
};

// Sends what syslog(3) would, but never waits: a log that does not read must not stop a job.
class LinuxSystemLog final : public SystemLog {
 public:
  void error(const std::string& message) override;
};

class LinuxTermination final : public Termination {
 public:
  bool requested() override;
};

class LinuxComputerName final : public ComputerName {
 public:
  std::string get() override;
};

class LinuxConsoleUser final : public ConsoleUser {
 public:
  std::string name() override;
};

}  // namespace kelm::platform::linux_platform
