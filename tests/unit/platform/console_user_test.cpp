// The console user on Linux, from files as logind (systemd 252) writes them for the first seat, and
// from a user database that the tests make.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/mount.h>

#include <filesystem>
#include <string>

#include "platform/linux/linux_platform.hpp"
#include "tests/support/child.hpp"
#include "tests/support/temporary_directory.hpp"

namespace kelm::platform::linux_platform {
namespace {

// A record that is longer than the first buffer that is tried.
std::string longRecord() {
  return "jürgen:x:4712:4712:" + std::string(3000, 'J') + ":/home/jürgen:/bin/sh\n";
}

bool useOwnUsers() {
  tests::writeFile("/run/passwd",
                   "root:x:0:0:root:/root:/bin/sh\n"
                   "anna:x:4711:4711:Anna:/home/anna:/bin/sh\n" +
                       longRecord());
  return mount("/run/passwd", "/etc/passwd", nullptr, MS_BIND, nullptr) == 0;
}

// The whole file as logind writes it for a seat with two sessions; `active` names the active one.
std::string seatFile(const std::string& active) {
  return "# This is private data. Do not parse.\n"
         "IS_SEAT0=1\n"
         "CAN_MULTI_SESSION=1\n"
         "CAN_TTY=1\n"
         "CAN_GRAPHICAL=1\n" +
         active +
         "SESSIONS=4 c1\n"
         "UIDS=4711 4712\n";
}

// The console user of a computer with this file for the seat, in brackets.
std::string consoleUserOf(const std::string& file, const std::string& seat = "seat0") {
  return tests::onOwnComputer([&]() -> std::string {
    std::filesystem::create_directories("/run/systemd/seats");
    tests::writeFile("/run/systemd/seats/" + seat, file);
    if (!useOwnUsers()) return "refused";
    return "[" + LinuxConsoleUser().name() + "]";
  });
}

TEST(ConsoleUser, IsTheOneWhoseSessionIsInFront) {
  EXPECT_EQ(consoleUserOf(seatFile("ACTIVE=4\nACTIVE_UID=4711\n")), "[anna]");
}

TEST(ConsoleUser, MayHaveALongRecordAndANameThatIsNotAscii) {
  EXPECT_EQ(consoleUserOf(seatFile("ACTIVE=c1\nACTIVE_UID=4712\n")), "[jürgen]");
}

TEST(ConsoleUser, IsNobodyWhileNoSessionIsInFront) { EXPECT_EQ(consoleUserOf(seatFile("")), "[]"); }

TEST(ConsoleUser, IsNobodyWhomTheUserDatabaseDoesNotKnow) {
  EXPECT_EQ(consoleUserOf(seatFile("ACTIVE=4\nACTIVE_UID=4713\n")), "[]");
}

TEST(ConsoleUser, IsNobodyForASeatThatCannotBeRead) {
  EXPECT_EQ(consoleUserOf(seatFile("ACTIVE=4\nACTIVE_UID=anna\n")), "[]");
  EXPECT_EQ(consoleUserOf(seatFile("ACTIVE=4\nACTIVE_UID=-1\n")), "[]");
  EXPECT_EQ(consoleUserOf(""), "[]");
}

TEST(ConsoleUser, DoesNotSitAtAnotherSeat) {
  EXPECT_EQ(consoleUserOf(seatFile("ACTIVE=4\nACTIVE_UID=4711\n"), "seat1"), "[]");
}

}  // namespace
}  // namespace kelm::platform::linux_platform
