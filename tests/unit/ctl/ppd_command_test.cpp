// kelmctl ppd with PPD files.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <thread>

#include "ctl/exit_status.hpp"
#include "platform/fake/fake_platform.hpp"
#include "tests/unit/ctl/command_runner.hpp"
#include "tests/unit/ppdtext/test_file.hpp"

namespace kelm::ctl {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kText =
    "*cupsLanguages: \"en de\"\n*OpenGroup: Paper/Paper\n"
    "*OpenUI *PageSize/Paper size: PickOne\n*DefaultPageSize: A4\n"
    "*de.Translation PageSize/Papierformat: \"\"\n*PageSize A3/A3: \"\"\n*PageSize A4/A4: \"4\"\n"
    "*de.PageSize A4/A vier: \"\"\n*PageSize Odd/__EMPTY__: \"__EMPTY__\"\n*CloseUI: *PageSize\n"
    "*CloseGroup: Paper\n";

class PpdCommand : public testing::Test {
 protected:
  platform::FakePlatform system;
  ppdtext::TestDirectory directory;
  const std::string path = directory.write("a.ppd", kText);
};

TEST_F(PpdCommand, ShowsOptionsAndChoicesWithTheDefaultMarked) {
  const Outcome outcome = runKelmctl({"ppd", path.c_str()});
  EXPECT_EQ(outcome.status, kExitDone);
  EXPECT_THAT(outcome.err, IsEmpty());
  EXPECT_EQ(outcome.out,
            "Language: en\n\nGroup 2\n  Paper size  (PageSize)\n      A3  (A3)\n    * A4  (A4)\n"
            "      __EMPTY__  (Odd)\n");
}

TEST_F(PpdCommand, ShowsTheUsersLanguage) {
  system.preferredLanguages.preferred = {"de-AT", "en"};
  EXPECT_THAT(runKelmctl({"ppd", path.c_str()}).out,
              HasSubstr("Language: de\n\nGroup 2\n  Papierformat  (PageSize)\n      A3  (A3)\n"
                        "    * A vier  (A4)\n"));
}

TEST_F(PpdCommand, TakesALanguageInPlaceOfTheUsersFirst) {
  system.preferredLanguages.preferred = {"fr-FR", "en"};
  EXPECT_THAT(runKelmctl({"ppd", path.c_str(), "--language", "de"}).out,
              HasSubstr("Language: de\n"));
  EXPECT_THAT(runKelmctl({"ppd", path.c_str(), "--language", "it"}).out,
              HasSubstr("Language: en\n"));
}

TEST_F(PpdCommand, WritesOneJsonObject) {
  const Outcome outcome = runKelmctl({"ppd", path.c_str(), "--language", "de-DE", "--json"});
  EXPECT_EQ(outcome.status, kExitDone);
  EXPECT_EQ(nlohmann::json::parse(outcome.out), nlohmann::json::parse(R"({
    "language": "de",
    "groups": [
      {"options": []},
      {"options": [{
        "keyword": "PageSize", "text": "Papierformat", "default": "A4",
        "choices": [
          {"choice": "A3", "text": "A3", "code": "", "marked": false},
          {"choice": "A4", "text": "A vier", "code": "4", "marked": true},
          {"choice": "Odd", "text": "__EMPTY__", "code": null, "marked": false}
        ]}]}],
    "attributes": [
      {"name": "cupsLanguages", "value": "en de"},
      {"name": "OpenGroup", "value": "Paper/Paper"},
      {"name": "DefaultPageSize", "value": "A4"},
      {"name": "CloseUI", "value": "*PageSize"},
      {"name": "CloseGroup", "value": "Paper"}
    ]})"));
}

TEST_F(PpdCommand, LeavesOutWhatIsLeftOfACharacter) {
  const std::string begin(79, 'a');
  const std::string file =
      directory.write("long.ppd", kText + ("*de.PageSize A3/" + begin + "ä: \"\"\n"));
  const Outcome json = runKelmctl({"ppd", file.c_str(), "--language", "de", "--json"});
  EXPECT_EQ(nlohmann::json::parse(json.out)["groups"][1]["options"][0]["choices"][0]["text"],
            begin);
  EXPECT_THAT(runKelmctl({"ppd", file.c_str(), "--language", "de"}).out,
              HasSubstr("      " + begin + "  (A3)\n"));
}

TEST_F(PpdCommand, DoesNotLetATextSteerTheTerminal) {
  const std::string file =
      directory.write("bell.ppd", "*OpenUI *F/\x1B[2J: PickOne\n*F O/O: \"1\"\n*CloseUI: *F\n");
  EXPECT_THAT(runKelmctl({"ppd", file.c_str()}).out, testing::Not(HasSubstr("\x1B")));
}

// The output of another program can be read only once: ... | kelmctl ppd /dev/stdin
TEST_F(PpdCommand, ReadsAPipeOnce) {
  const std::string pipe = directory.path() + "/pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::thread writer([&] { std::ofstream(pipe) << kText; });
  EXPECT_THAT(runKelmctl({"ppd", pipe.c_str(), "--language", "de"}).out,
              HasSubstr("    * A vier  (A4)\n"));
  writer.join();
}

TEST_F(PpdCommand, NamesAFileThatCannotBeRead) {
  const Outcome outcome = runKelmctl({"ppd", "/nonexistent.ppd"});
  EXPECT_EQ(outcome.status, kExitFailed);
  EXPECT_THAT(outcome.out, IsEmpty());
  EXPECT_THAT(outcome.err, HasSubstr("kelmctl: /nonexistent.ppd: cannot be read as UTF-8 text"));
}

TEST_F(PpdCommand, NamesTheOptionWithoutAChoiceAndItsLine) {
  const std::string file = directory.write(
      "bare.ppd", "*PPD-Adobe: \"4.3\"\n*OpenUI *Bare/b: PickOne\n*CloseUI: *Bare\n");
  const Outcome outcome = runKelmctl({"ppd", file.c_str()});
  EXPECT_EQ(outcome.status, kExitFailed);
  EXPECT_THAT(outcome.err,
              HasSubstr("kelmctl: " + file + ", line 2: option \"Bare\" has no choice;"));
}

TEST_F(PpdCommand, NamesAFileWithoutOptions) {
  const std::string file = directory.write("empty.ppd", "*PPD-Adobe: \"4.3\"\n");
  const Outcome outcome = runKelmctl({"ppd", file.c_str()});
  EXPECT_EQ(outcome.status, kExitFailed);
  EXPECT_THAT(outcome.err, HasSubstr("kelmctl: " + file + ": no option with a text"));
}

TEST_F(PpdCommand, RefusesKeywordsThatTakeTooLong) {
  const std::string letters(200, 'a');
  const std::string reading =
      directory.write("slow.ppd", "*" + letters + " On/On: \"\"\n*OpenUI *(a+)+b/b: PickOne\n");
  EXPECT_THAT(runKelmctl({"ppd", reading.c_str()}).err, HasSubstr("takes too long"));
  const std::string showing =
      directory.write("odd.ppd",
                      "*cupsLanguages: \"de\"\n*OpenUI *Fold/F: PickOne\n*Fold (a+)+b/On: \"\"\n"
                      "*CloseUI: *Fold\n*de.Fold " +
                          letters + "/An: \"\"\n");
  const Outcome outcome = runKelmctl({"ppd", showing.c_str(), "--language", "de"});
  EXPECT_EQ(outcome.status, kExitFailed);
  EXPECT_THAT(outcome.out, IsEmpty());
  EXPECT_THAT(outcome.err, HasSubstr("translations take too long"));
}

TEST_F(PpdCommand, WithoutAFileIsAUsageError) { EXPECT_EQ(runKelmctl({"ppd"}).status, kExitUsage); }

}  // namespace
}  // namespace kelm::ctl
