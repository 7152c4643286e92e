// The parts of the platform that every POSIX system has, each against the system's own service.
// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/posix_platform.hpp"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <syslog.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <string_view>

#include "platform/standard_streams.hpp"
#include "tests/support/child.hpp"
#include "tests/support/own_computer.hpp"

namespace kelm::platform::posix_platform {
namespace {

using tests::inChild;
using tests::onOwnComputer;

std::string environmentValue(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "unset" : value;
}

TEST(PosixJobLanguage, BecomesTheLanguageOfMessages) {
  EXPECT_EQ(inChild([] {
              setenv("LC_MESSAGES", "fr_FR", 1);
              PosixJobLanguage().prefer("de_DE.UTF-8");
              return environmentValue("LC_MESSAGES");
            }),
            "de_DE.UTF-8");
}

TEST(PosixJobLanguage, TakesAwayWhatWouldWinOverIt) {
  EXPECT_EQ(inChild([] {
              setenv("LC_ALL", "C", 1);
              PosixJobLanguage().prefer("de");
              return environmentValue("LC_ALL");
            }),
            "unset");
}

TEST(PosixJobLanguage, LeavesTheRestOfTheLocale) {
  EXPECT_EQ(inChild([] {
              setenv("LANG", "fr_FR", 1);
              PosixJobLanguage().prefer("de");
              return environmentValue("LANG");
            }),
            "fr_FR");
}

TEST(PosixFileRoot, FindsPathsWhereTheySayTheyAre) {
  EXPECT_EQ(PosixFileRoot().locate("/Library/Caches/file.txt"), "/Library/Caches/file.txt");
}

TEST(PosixWallClock, TellsTheLocalTime) {
  const std::time_t before = std::time(nullptr);
  std::tm local = PosixWallClock().localTime();
  const std::time_t told = std::mktime(&local);
  EXPECT_GE(told, before);
  EXPECT_LE(told, std::time(nullptr));
}

TEST(PosixWallClock, KnowsTheTimeZone) {
  EXPECT_EQ(inChild([] {
              setenv("TZ", "XYZ-5", 1);  // five hours east
              tzset();
              return std::to_string(PosixWallClock().localTime().tm_gmtoff);
            }),
            "18000");
}

// A socket where syslog(3) expects the system log.
int listenAsSystemLog() {
  const int log = socket(AF_UNIX, SOCK_DGRAM, 0);
  fcntl(log, F_SETFL, O_NONBLOCK);
  constexpr std::string_view kPath = _PATH_LOG;
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::copy(kPath.begin(), kPath.end(), address.sun_path);
  const bool bound = tests::hideDirectory("/dev") &&
                     bind(log, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  return bound ? log : -1;
}

std::string received(int log) {
  std::array<char, 1024> record{};
  const ssize_t count = recv(log, record.data(), record.size(), 0);
  return count < 0 ? "nothing" : std::string(record.data(), static_cast<std::size_t>(count));
}

TEST(PosixSystemLog, WritesOneRecordAtErrorLevel) {
  const std::string record = onOwnComputer([] {
    const int log = listenAsSystemLog();
    PosixSystemLog().error("[DEBUG] 100 %s %n of it");
    return received(log);
  });
  EXPECT_THAT(record, testing::StartsWith("<11>"));  // LOG_USER, LOG_ERR
  EXPECT_THAT(record, testing::HasSubstr(": [DEBUG] 100 %s %n of it"));
}

TEST(PosixSystemLog, LosesTheMessageWhereThereIsNone) {
  EXPECT_EQ(onOwnComputer([] {
              if (!tests::hideDirectory("/dev")) return "refused";
              PosixSystemLog().error("lost");
              return "alive";
            }),
            "alive");
}

bool isDevNull(int descriptor) {
  struct stat is {};
  struct stat null {};
  return fstat(descriptor, &is) == 0 && stat("/dev/null", &null) == 0 && is.st_rdev == null.st_rdev;
}

TEST(StandardStreams, ThatAreClosedBecomeDevNull) {
  for (const int closed : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    EXPECT_EQ(inChild([closed] {
                close(closed);
                openStandardStreams();
                return isDevNull(closed) ? "empty" : "closed";
              }),
              "empty")
        << closed;
  }
}

}  // namespace
}  // namespace kelm::platform::posix_platform
