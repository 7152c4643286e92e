// The platform on macOS.
// SPDX-License-Identifier: Apache-2.0
#include "platform/system_platform.hpp"

#include "platform/macos/macos_platform.hpp"
#include "platform/posix/posix_platform.hpp"

namespace kelm::platform {

const Platform& systemPlatform() {
  static macos_platform::MacosJobLanguage jobLanguage;
  static posix_platform::PosixWallClock wallClock;
  static posix_platform::PosixFileRoot fileRoot;
  static posix_platform::PosixSystemLog systemLog;
  static macos_platform::MacosComputerName computerName;
  static macos_platform::MacosConsoleUser consoleUser;
  static posix_platform::PosixPreferredLanguages preferredLanguages;
  static posix_platform::PosixHomeDirectory homeDirectory;
  static macos_platform::MacosSteadyClock steadyClock;
  static posix_platform::PosixTermination termination;
  static macos_platform::MacosNameLookup nameLookup;
  static macos_platform::MacosDnsSd dnsSd;
  static posix_platform::PosixDestinations destinations;
  static macos_platform::MacosWakeUpBus wakeUpBus;
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
