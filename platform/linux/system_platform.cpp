// The platform on Linux.
// SPDX-License-Identifier: Apache-2.0
#include "platform/system_platform.hpp"

#include "platform/linux/linux_platform.hpp"
#include "platform/posix/posix_platform.hpp"

namespace kelm::platform {

const Platform& systemPlatform() {
  static posix_platform::PosixJobLanguage jobLanguage;
  static posix_platform::PosixWallClock wallClock;
  static posix_platform::PosixFileRoot fileRoot;
  static posix_platform::PosixSystemLog systemLog;
  static linux_platform::LinuxComputerName computerName;
  static linux_platform::LinuxConsoleUser consoleUser;
  static posix_platform::PosixPreferredLanguages preferredLanguages;
  static posix_platform::PosixHomeDirectory homeDirectory;
  static linux_platform::LinuxSteadyClock steadyClock;
  static posix_platform::PosixTermination termination;
  static linux_platform::LinuxNameLookup nameLookup;
  static linux_platform::LinuxDnsSd dnsSd;
  static posix_platform::PosixDestinations destinations;
  static linux_platform::LinuxWakeUpBus wakeUpBus;
  static const Platform set{
      .jobLanguage = &jobLanguage,
      .wallClock = &wallClock,
      .fileRoot = &fileRoot,
      .systemLog = &systemLog,
      .computerName = &computerName,
      .consoleUser = &consoleUser,
      .preferredLanguages = &preferredLanguages,
      .homeDirectory = &homeDirectory,
      .steadyClock = &steadyClock,
      .termination = &termination,
      .nameLookup = &nameLookup,
      .dnsSd = &dnsSd,
      .destinations = &destinations,
      .wakeUpBus = &wakeUpBus,
  };
  return set;
}

}  // namespace kelm::platform
