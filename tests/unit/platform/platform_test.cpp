// The process's set of platform bodies.
// SPDX-License-Identifier: Apache-2.0
#include "platform/platform.hpp"

#include <gtest/gtest.h>

#include "platform/system_bodies.hpp"

namespace kelm::platform {
namespace {

TEST(Platform, IsTheOperatingSystemAtFirst) { EXPECT_EQ(&platform(), &systemBodies()); }

TEST(Platform, OfTheOperatingSystemIsWhole) {
  const Platform& system = systemBodies();
  EXPECT_NE(system.jobLanguage, nullptr);
  EXPECT_NE(system.wallClock, nullptr);
  EXPECT_NE(system.fileRoot, nullptr);
  EXPECT_NE(system.systemLog, nullptr);
  EXPECT_NE(system.computerName, nullptr);
  EXPECT_NE(system.consoleUser, nullptr);
}

TEST(ScopedPlatform, TakesThePlaceOfTheSetWhileItLives) {
  const Platform replacement = systemBodies();
  {
    const ScopedPlatform scope(replacement);
    EXPECT_EQ(&platform(), &replacement);
  }
  EXPECT_EQ(&platform(), &systemBodies());
}

TEST(ScopedPlatform, GivesBackTheOneBefore) {
  const Platform outer = systemBodies();
  const Platform inner = systemBodies();
  const ScopedPlatform outerScope(outer);
  { const ScopedPlatform innerScope(inner); }
  EXPECT_EQ(&platform(), &outer);
}

}  // namespace
}  // namespace kelm::platform
