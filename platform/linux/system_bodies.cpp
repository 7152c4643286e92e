// The set of bodies on Linux.
#include "platform/system_bodies.hpp"

#include "platform/linux/linux_bodies.hpp"

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
  static const Platform set{
      .jobLanguage = &jobLanguage,
      .wallClock = &wallClock,
      .fileRoot = &fileRoot,
      .systemLog = &systemLog,
      .computerName = &computerName,
      .consoleUser = &consoleUser,
      .preferredLanguages = &preferredLanguages,
      .homeFolder = &homeFolder,
  };
  return set;
}

}  // namespace kelm::platform
