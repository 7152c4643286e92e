// The process's set of platform implementations.
// SPDX-License-Identifier: Apache-2.0
#include "platform/platform.hpp"

#include <gtest/gtest.h>

#include "platform/system_platform.hpp"

namespace kelm::platform {
namespace {

TEST(Platform, IsTheOperatingSystemAtFirst) { EXPECT_EQ(&platform(), &systemPlatform()); }

TEST(Platform, OfTheOperatingSystemIsWhole) {
  const Platform& system = systemPlatform();
  EXPECT_NE(system.jobLanguage, nullptr);
  EXPECT_NE(system.wallClock, nullptr);
  EXPECT_NE(system.fileRoot, nullptr);
  EXPECT_NE(system.systemLog, nullptr);
  EXPECT_NE(system.computerName, nullptr);
  EXPECT_NE(system.consoleUser, nullptr);
}

TEST(ScopedPlatform, TakesThePlaceOfTheSetWhileItLives) {
  const Platform replacement = systemPlatform();
  {
    const ScopedPlatform scope(replacement);
    EXPECT_EQ(&platform(), &replacement);
  }
  EXPECT_EQ(&platform(), &systemPlatform());
}

TEST(ScopedPlatform, GivesBackTheOneBefore) {
  const Platform outer = systemPlatform();
  const Platform inner = systemPlatform();
  const ScopedPlatform outerScope(outer);
  { const ScopedPlatform innerScope(inner); }
  EXPECT_EQ(&platform(), &outer);
}

}  // namespace
}  // namespace kelm::platform
