// The set of bodies on Linux.
// SPDX-License-Identifier: Apache-2.0
#include "platform/system_bodies.hpp"

#include "platform/linux/linux_bodies.hpp"
#include "platform/linux/network_bodies.hpp"

namespace kelm::platform {

const Platform& systemBodies() {
  static linux_bodies::LinuxJobLanguage jobLanguage;
  static linux_bodies::LinuxWallClock wallClock;
  static linux_bodies::LinuxFileRoot fileRoot;
  static linux_bodies::LinuxSystemLog systemLog;
  static linux_bodies::LinuxComputerName computerName;
  static linux_bodies::LinuxConsoleUser consoleUser;
  static linux_bodies::LinuxPreferredLanguages preferredLanguages;
  static linux_bodies::LinuxHomeFolder homeFolder;
  static linux_bodies::LinuxSteadyClock steadyClock;
  static linux_bodies::LinuxNameLookup nameLookup;
  static linux_bodies::LinuxDnsSd dnsSd;
  static linux_bodies::LinuxDestinations destinations;
  static linux_bodies::LinuxWakeUpBus wakeUpBus;
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
      .nameLookup = &nameLookup,
      .dnsSd = &dnsSd,
      .destinations = &destinations,
      .wakeUpBus = &wakeUpBus,
  };
  return set;
}

}  // namespace kelm::platform
