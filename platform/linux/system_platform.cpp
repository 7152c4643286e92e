// The platform on Linux.
// SPDX-License-Identifier: Apache-2.0
#include "platform/system_platform.hpp"

#include "platform/linux/linux_network.hpp"
#include "platform/linux/linux_platform.hpp"

namespace kelm::platform {

const Platform& systemPlatform() {
  static linux_platform::LinuxJobLanguage jobLanguage;
  static linux_platform::LinuxWallClock wallClock;
  static linux_platform::LinuxFileRoot fileRoot;
  static linux_platform::LinuxSystemLog systemLog;
  static linux_platform::LinuxComputerName computerName;
  static linux_platform::LinuxConsoleUser consoleUser;
  static linux_platform::LinuxPreferredLanguages preferredLanguages;
  static linux_platform::LinuxHomeFolder homeFolder;
  static linux_platform::LinuxSteadyClock steadyClock;
  static linux_platform::LinuxTermination termination;
  static linux_platform::LinuxNameLookup nameLookup;
  static linux_platform::LinuxDnsSd dnsSd;
  static linux_platform::LinuxDestinations destinations;
  static linux_platform::LinuxWakeUpBus wakeUpBus;
  static const Platform set{
      .jobLanguage = &jobLanguage,
      .wallClock = &wallClock,
      .fileRoot = &fileRoot,
      .systemLog = &systemLog,
      .computerName = &computerName,
      .consoleUser = &consoleUser,
      .preferredLanguages = &preferredLanguages,
      .homeFolder = &homeFolder,
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
