// The operating system, as one set of small interfaces.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/computer_name.hpp"
#include "platform/console_user.hpp"
#include "platform/destinations.hpp"
#include "platform/dns_sd.hpp"
#include "platform/file_root.hpp"
#include "platform/home_directory.hpp"
#include "platform/job_language.hpp"
#include "platform/name_lookup.hpp"
#include "platform/preferred_languages.hpp"
#include "platform/steady_clock.hpp"
#include "platform/system_log.hpp"
#include "platform/termination.hpp"
#include "platform/wake_up_bus.hpp"
#include "platform/wall_clock.hpp"

namespace kelm::platform {

// The implementations in use. None is null; each lives at least as long as the set.
struct Platform {
  JobLanguage* jobLanguage;
  WallClock* wallClock;
  FileRoot* fileRoot;
  SystemLog* systemLog;
  ComputerName* computerName;
  ConsoleUser* consoleUser;
  PreferredLanguages* preferredLanguages;
  HomeDirectory* homeDirectory;
  SteadyClock* steadyClock;
  Termination* termination;
  NameLookup* nameLookup;
  DnsSd* dnsSd;
  Destinations* destinations;
  WakeUpBus* wakeUpBus;
};

// The process's set: the operating system's, unless a test has replaced it (ScopedPlatform).
// Reading it from several threads is safe, replacing it is not.
const Platform& platform();

// Replaces the process's set for the lifetime of the object.
class ScopedPlatform {
 public:
  explicit ScopedPlatform(const Platform& replacement);
  ~ScopedPlatform();
  ScopedPlatform(const ScopedPlatform&) = delete;
  ScopedPlatform& operator=(const ScopedPlatform&) = delete;

 private:
  const Platform* previous_;
};

}  // namespace kelm::platform
