// The program sees what a test sets in the fake platform.
// SPDX-License-Identifier: Apache-2.0
#include "platform/fake/fake_platform.hpp"

#include <gmock/gmock.h>

#include "platform/system_platform.hpp"

namespace kelm::platform {
namespace {

TEST(FakePlatform, IsInPlaceWhileItLives) {
  {
    FakePlatform fake;
    EXPECT_EQ(platform().wallClock, &fake.wallClock);
  }
  EXPECT_EQ(&platform(), &systemPlatform());
}

TEST(FakePlatform, RemembersTheLanguage) {
  FakePlatform fake;
  EXPECT_EQ(fake.jobLanguage.preferred, "");
  platform().jobLanguage->prefer("de_DE");
  EXPECT_EQ(fake.jobLanguage.preferred, "de_DE");
}

TEST(FakePlatform, TellsTheTimeThatWasSet) {
  FakePlatform fake;
  fake.wallClock.now.tm_hour = 14;
  EXPECT_EQ(platform().wallClock->localTime().tm_hour, 14);
}

TEST(FakePlatform, FindsPathsUnderItsRoot) {
  FakePlatform fake;
  EXPECT_EQ(platform().fileRoot->locate("/etc"), "/nonexistent/etc");
  fake.fileRoot.root = "/tmp/x";
  EXPECT_EQ(platform().fileRoot->locate("/etc"), "/tmp/x/etc");
}

TEST(FakePlatform, KeepsTheSystemLogInOrder) {
  FakePlatform fake;
  platform().systemLog->error("one");
  platform().systemLog->error("two");
  EXPECT_THAT(fake.systemLog.messages, testing::ElementsAre("one", "two"));
}

TEST(FakePlatform, HasNoUserAndNoNameAtFirst) {
  FakePlatform fake;
  EXPECT_EQ(platform().computerName->get(), "");
  EXPECT_EQ(platform().consoleUser->name(), "");
  fake.computerName.computer = "desk";
  fake.consoleUser.user = "eva";
  EXPECT_EQ(platform().computerName->get(), "desk");
  EXPECT_EQ(platform().consoleUser->name(), "eva");
}

}  // namespace
}  // namespace kelm::platform
