// The command line of kelmctl: exit statuses, help, and that every subcommand is documented.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/command_line.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <fstream>
#include <iterator>
#include <string>

#include "ctl/commands.hpp"
#include "ctl/exit_status.hpp"
#include "tests/unit/ctl/command_runner.hpp"

namespace kelm::ctl {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

std::string packagingFile(const std::string& name) {
  std::ifstream file(KELM_PACKAGING_DIR "/" + name);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(CommandLine, PrintsItsHelpWhenAsked) {
  const Outcome outcome = runKelmctl({"--help"});
  EXPECT_EQ(outcome.status, kExitDone);
  EXPECT_THAT(outcome.err, IsEmpty());
  for (const Subcommand& row : kSubcommands) {
    EXPECT_THAT(outcome.out, HasSubstr(row.name));
    EXPECT_THAT(outcome.out, HasSubstr(row.help));
  }
}

TEST(CommandLine, PrintsItsVersionWhenAsked) {
  const Outcome outcome = runKelmctl({"--version"});
  EXPECT_EQ(outcome.status, kExitDone);
  EXPECT_THAT(outcome.out, testing::MatchesRegex("kelmctl [0-9]+[.][0-9]+[.][0-9]+\n"));
}

TEST(CommandLine, WithoutSubcommandIsAUsageError) {
  const Outcome outcome = runKelmctl({});
  EXPECT_EQ(outcome.status, kExitUsage);
  EXPECT_THAT(outcome.out, IsEmpty());
  EXPECT_THAT(outcome.err, StartsWith("kelmctl: A subcommand is required\nRun kelmctl --help"));
}

TEST(CommandLine, NamesAnUnknownSubcommand) {
  const Outcome outcome = runKelmctl({"frobnicate"});
  EXPECT_EQ(outcome.status, kExitUsage);
  EXPECT_THAT(outcome.err, HasSubstr("\"frobnicate\""));
}

TEST(CommandLine, FailsWhenTheResultCannotBeWritten) {
  std::ofstream full("/dev/full");
  std::ostringstream err;
  const char* const arguments[] = {"kelmctl", "--help"};
  EXPECT_EQ(runCommandLine(2, arguments, {full, err}), kExitFailed);
  EXPECT_THAT(err.str(), HasSubstr("cannot be written"));
}

TEST(Subcommands, PrintTheirHelpWhenAsked) {
  for (const Subcommand& row : kSubcommands) {
    const Outcome outcome = runKelmctl({row.name, "--help"});
    EXPECT_EQ(outcome.status, kExitDone) << row.name;
    EXPECT_THAT(outcome.out, HasSubstr(row.help));
  }
}

TEST(Subcommands, AreInTheManualPageWithTheirOptions) {
  const std::string manual = packagingFile("man/kelmctl.1.scd");
  for (const Subcommand& row : kSubcommands) {
    EXPECT_THAT(manual, HasSubstr("## " + std::string(row.name) + "\n"));
    CLI::App app;
    ArgumentList list(app);
    row.declare(list);
    for (const CLI::Option* option : app.get_options()) {
      for (const std::string& name : option->get_lnames()) {
        EXPECT_THAT(manual, HasSubstr("*--" + name + "*"));
      }
    }
  }
}

}  // namespace
}  // namespace kelm::ctl
