// The platform on Linux, each implementation against the system's own service.
// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/linux_platform.hpp"

#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>

#include "tests/support/child.hpp"
#include "tests/support/temporary_directory.hpp"

namespace kelm::platform::linux_platform {
namespace {

using tests::onOwnComputer;

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

// The console user of a computer where logind has written this file for the first seat.
std::string consoleUserOfSeat(const std::string& seat) {
  return onOwnComputer([&] {
    std::filesystem::create_directories("/run/systemd/seats");
    tests::writeFile("/run/systemd/seats/seat0", seat);
    return "[" + LinuxConsoleUser().name() + "]";
  });
}

TEST(LinuxConsoleUser, IsTheUserOfTheActiveSession) {
  EXPECT_EQ(consoleUserOfSeat("ACTIVE=1\nACTIVE_UID=0\n"), "[root]");
}

TEST(LinuxConsoleUser, IsEmptyWithoutLogind) {
  EXPECT_EQ(onOwnComputer([] { return "[" + LinuxConsoleUser().name() + "]"; }), "[]");
}

TEST(LinuxConsoleUser, IsEmptyWithoutAnActiveSession) {
  EXPECT_EQ(consoleUserOfSeat("IS_SEAT0=1\n"), "[]");
}

TEST(LinuxConsoleUser, IsEmptyForAnUnknownUser) {
  EXPECT_EQ(consoleUserOfSeat("ACTIVE=1\nACTIVE_UID=3999999999\n"), "[]");
}

// A name that no service can have is refused without a connection to the daemon.
TEST(LinuxDnsSd, RefusesWhatNoServiceCanHave) {
  LinuxDnsSd dnsSd;
  EXPECT_TRUE(dnsSd.create("local", "_ipp._tcp", "My.Printer"));
  EXPECT_FALSE(dnsSd.create("local", "Printer._ipp", "My"));
  EXPECT_FALSE(dnsSd.create("local", "_ipp._sctp", "My.Printer"));
  EXPECT_FALSE(dnsSd.create("local", "_ipp._tcp", std::string(64, 'x')));
  EXPECT_FALSE(dnsSd.create("local", "_ipp._tcp", ""));
  EXPECT_FALSE(dnsSd.create(std::string(64, 'x'), "_ipp._tcp", "My.Printer"));
}

}  // namespace
}  // namespace kelm::platform::linux_platform
