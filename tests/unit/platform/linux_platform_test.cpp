// The platform on Linux, each implementation against the system's own service.
// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/linux_platform.hpp"

#include <gmock/gmock.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "tests/support/child.hpp"
#include "tests/support/temporary_folder.hpp"

namespace kelm::platform::linux_platform {
namespace {

using tests::inChild;
using tests::onOwnComputer;

std::string environmentValue(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "unset" : value;
}

TEST(LinuxJobLanguage, BecomesTheLanguageOfMessages) {
  EXPECT_EQ(inChild([] {
              setenv("LC_MESSAGES", "fr_FR", 1);
              LinuxJobLanguage().prefer("de_DE.UTF-8");
              return environmentValue("LC_MESSAGES");
            }),
            "de_DE.UTF-8");
}

TEST(LinuxJobLanguage, TakesAwayWhatWouldWinOverIt) {
  EXPECT_EQ(inChild([] {
              setenv("LC_ALL", "C", 1);
              LinuxJobLanguage().prefer("de");
              return environmentValue("LC_ALL");
            }),
            "unset");
}

TEST(LinuxJobLanguage, LeavesTheRestOfTheLocale) {
  EXPECT_EQ(inChild([] {
              setenv("LANG", "fr_FR", 1);
              LinuxJobLanguage().prefer("de");
              return environmentValue("LANG");
            }),
            "fr_FR");
}

TEST(LinuxFileRoot, FindsPathsWhereTheySayTheyAre) {
  EXPECT_EQ(LinuxFileRoot().locate("/Library/Caches/file.txt"), "/Library/Caches/file.txt");
}

TEST(LinuxWallClock, TellsTheLocalTime) {
  const std::time_t before = std::time(nullptr);
  std::tm local = LinuxWallClock().localTime();
  const std::time_t told = std::mktime(&local);
  EXPECT_GE(told, before);
  EXPECT_LE(told, std::time(nullptr));
}

TEST(LinuxWallClock, KnowsTheTimeZone) {
  EXPECT_EQ(inChild([] {
              setenv("TZ", "XYZ-5", 1);  // five hours east
              tzset();
              return std::to_string(LinuxWallClock().localTime().tm_gmtoff);
            }),
            "18000");
}

TEST(LinuxComputerName, IsTheHostName) {
  EXPECT_EQ(onOwnComputer([] {
              const std::string name = "desk-of-eva";
              if (sethostname(name.data(), name.size()) != 0) return std::string("refused");
              return LinuxComputerName().get();
            }),
            "desk-of-eva");
}

TEST(LinuxComputerName, MayBeAsLongAsTheSystemAllows) {
  const std::string longest(64, 'n');
  EXPECT_EQ(onOwnComputer([&] {
              if (sethostname(longest.data(), longest.size()) != 0) return std::string("refused");
              return LinuxComputerName().get();
            }),
            longest);
}

TEST(LinuxComputerName, MayBeEmpty) {
  EXPECT_EQ(onOwnComputer([] {
              if (sethostname("", 0) != 0) return std::string("refused");
              return "[" + LinuxComputerName().get() + "]";
            }),
            "[]");
}

// The console user of a computer whose first seat logind describes so.
std::string consoleUserOf(const std::string& seat) {
  return onOwnComputer([&] {
    std::filesystem::create_directories("/run/systemd/seats");
    tests::writeFile("/run/systemd/seats/seat0", seat);
    return "[" + LinuxConsoleUser().name() + "]";
  });
}

TEST(LinuxConsoleUser, IsTheUserOfTheActiveSession) {
  EXPECT_EQ(consoleUserOf("ACTIVE=1\nACTIVE_UID=0\n"), "[root]");
}

TEST(LinuxConsoleUser, IsEmptyWithoutLogind) {
  EXPECT_EQ(onOwnComputer([] { return "[" + LinuxConsoleUser().name() + "]"; }), "[]");
}

TEST(LinuxConsoleUser, IsEmptyWithoutAnActiveSession) {
  EXPECT_EQ(consoleUserOf("IS_SEAT0=1\n"), "[]");
}

TEST(LinuxConsoleUser, IsEmptyForAUserWhomNobodyKnows) {
  EXPECT_EQ(consoleUserOf("ACTIVE=1\nACTIVE_UID=3999999999\n"), "[]");
}

// A socket where syslog(3) expects the system log.
int listenAsSystemLog() {
  const int log = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  sockaddr_un address{.sun_family = AF_UNIX, .sun_path = "/dev/log"};
  const bool bound = mount("none", "/dev", "tmpfs", 0, nullptr) == 0 &&
                     bind(log, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  return bound ? log : -1;
}

std::string received(int log) {
  std::array<char, 1024> record{};
  const ssize_t count = recv(log, record.data(), record.size(), 0);
  return count < 0 ? "nothing" : std::string(record.data(), static_cast<std::size_t>(count));
}

TEST(LinuxSystemLog, WritesOneRecordAtErrorLevel) {
  const std::string record = onOwnComputer([] {
    const int log = listenAsSystemLog();
    LinuxSystemLog().error("[DEBUG] 100 %s %n of it");
    return received(log);
  });
  EXPECT_THAT(record, testing::StartsWith("<11>"));  // LOG_USER, LOG_ERR
  EXPECT_THAT(record, testing::HasSubstr(": [DEBUG] 100 %s %n of it"));
}

TEST(LinuxSystemLog, LosesTheMessageWhereThereIsNone) {
  EXPECT_EQ(onOwnComputer([] {
              if (mount("none", "/dev", "tmpfs", 0, nullptr) != 0) return "refused";
              LinuxSystemLog().error("lost");
              return "alive";
            }),
            "alive");
}

}  // namespace
}  // namespace kelm::platform::linux_platform
