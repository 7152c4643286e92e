// A platform in memory, for tests.
// SPDX-License-Identifier: Apache-2.0
#include "platform/fake/fake_platform.hpp"

namespace kelm::platform {

FakePlatform::FakePlatform()
    : set_{
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
      },
      scope_(set_) {}

}  // namespace kelm::platform
