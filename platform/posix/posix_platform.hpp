// The platform interfaces that every POSIX system has.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/platform.hpp"

namespace kelm::platform::posix_platform {

// libcups localises in the locale that setlocale has set, else in LC_MESSAGES, LC_ALL or LANG of
// the environment, in this order: the job's language becomes LC_MESSAGES, and LC_ALL is removed.
class PosixJobLanguage final : public JobLanguage {
 public:
  void prefer(const char* language) override;
};

class PosixWallClock final : public WallClock {
 public:
  std::tm localTime() override;
};

class PosixFileRoot final : public FileRoot {
 public:
  std::string locate(std::string_view absolutePath) const override;
};

// gettext's language priority list ("LANGUAGE"), then the locale for messages.
class PosixPreferredLanguages final : public PreferredLanguages {
 public:
  std::vector<std::string> tags() override;
};

class PosixHomeDirectory final : public HomeDirectory {
 public:
  std::string path() override;
};

// Sends what syslog(3) would, but never waits: a log that does not read must not stop a job.
class PosixSystemLog final : public SystemLog {
 public:
  void error(const std::string& message) override;
};

class PosixTermination final : public Termination {
 public:
  bool requested() override;
};

class PosixDestinations final : public Destinations {
 public:
  std::span<cups_dest_t> list() override;
};

}  // namespace kelm::platform::posix_platform
