// The update job: which lines go to CUPS, in which order, and which never do.
// SPDX-License-Identifier: Apache-2.0
#include "ppdsettings/update_job.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <utility>
#include <vector>

#include "platform/fake/fake_platform.hpp"

namespace kelm::ppdsettings {
namespace {

using job::PrintJobData;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A job with exactly these options, even if several have the same name.
class Job {
 public:
  explicit Job(std::vector<std::pair<std::string, std::string>>&& options)
      : texts_(std::move(options)) {
    for (auto& [name, value] : texts_) array_.push_back({name.data(), value.data()});
    record_.numOptions = static_cast<int>(array_.size());
    record_.options = array_.data();
  }
  operator const PrintJobData*() const { return &record_; }

 private:
  std::vector<std::pair<std::string, std::string>> texts_;
  std::vector<cups_option_t> array_;
  PrintJobData record_;
};

Job jobOf(std::vector<std::pair<std::string, std::string>> options) {
  return Job(std::move(options));
}

using Updater = bool(const PrintJobData*);

// "yes " or "no ", the updater's result, and what it wrote to standard error.
std::string update(Updater* updater, const PrintJobData* job) {
  testing::internal::CaptureStderr();
  const bool result = updater(job);
  return (result ? "yes " : "no ") + testing::internal::GetCapturedStderr();
}

class UpdateJob : public testing::Test {
 protected:
  platform::FakePlatform platform_;
};

TEST_F(UpdateJob, IsOneThatHasTheMarkerWhateverItsValue) {
  EXPECT_TRUE(ShouldUpdatePPD(jobOf({{"a", "b"}, {"UpdatePPDOptions", ""}})));
  EXPECT_TRUE(ShouldUpdatePPD(jobOf({{"UpdatePPDOptions", "false"}})));
}

TEST_F(UpdateJob, IsNoneWithoutTheMarker) {
  EXPECT_FALSE(ShouldUpdatePPD(nullptr));
  EXPECT_FALSE(ShouldUpdatePPD(jobOf({})));
  EXPECT_FALSE(ShouldUpdatePPD(jobOf({{"PrintPDE", "1"}, {"PPDOptionsUpdated", "1"}})));
  EXPECT_FALSE(ShouldUpdatePPD(jobOf({{"UpdatePPDOption", "1"}, {"updateppdoptions", "1"}})));
}

// A MAC address, and one that means "none".
constexpr char kMac[] = "MDA6MTE6MjI6MzM6NDQ6NTU=";
constexpr char kNoMac[] = "MDA6MDA6MDA6MDA6MDA6MDA=";

struct SingleCase {
  const char* keyword;
  Updater* updater;
  bool everyMatch;
  const char* one = "1";
  const char* other = "0";
};

void PrintTo(const SingleCase& row, std::ostream* out) { *out << row.keyword; }

class Single : public testing::TestWithParam<SingleCase> {
 protected:
  platform::FakePlatform platform_;
};

TEST_P(Single, WritesItsOption) {
  const std::string keyword = GetParam().keyword;
  EXPECT_EQ(update(GetParam().updater, jobOf({{"a", "b"}, {keyword, GetParam().one}})),
            "yes PPD: " + keyword + "=" + GetParam().one + "\n");
  EXPECT_EQ(update(GetParam().updater, jobOf({{keyword, ""}})), "yes PPD: " + keyword + "=\n");
}

TEST_P(Single, WritesNothingWithoutItsOption) {
  const std::string keyword = GetParam().keyword;
  EXPECT_EQ(update(GetParam().updater, nullptr), "no ");
  EXPECT_EQ(update(GetParam().updater, jobOf({})), "no ");
  EXPECT_EQ(update(GetParam().updater, jobOf({{keyword + "0", "1"}, {"x" + keyword, "1"}})), "no ");
}

TEST_P(Single, WritesTheFirstOrEveryMatch) {
  const std::string keyword = GetParam().keyword;
  const std::string one = GetParam().one;
  const std::string other = GetParam().other;
  const std::string first = "yes PPD: " + keyword + "=" + one + "\n";
  const std::string second = "PPD: " + keyword + "=" + other + "\n";
  EXPECT_EQ(update(GetParam().updater, jobOf({{keyword, one}, {keyword, other}})),
            GetParam().everyMatch ? first + second : first);
}

INSTANTIATE_TEST_SUITE_P(
    All, Single,
    testing::Values(SingleCase{"PPDOptionsUpdated", UpdatePPDOptionsUpdatedToPPD, false},
                    SingleCase{"IsCustomSnmpCommunity", UpdateIsCustomSnmpCommunityToPPD, false},
                    SingleCase{"SnmpCommunityName", UpdateSnmpCommunityNameToPPD, false},
                    SingleCase{"IsWakeOnLan", UpdateIsWakeOnLanToPPD, false},
                    SingleCase{"PrinterMacAddress", UpdateMacAddressToPPD, false, kMac, kNoMac},
                    SingleCase{"IsOverTheRouter", UpdateOverTheRouterToPPD, false},
                    SingleCase{"PrinterIPAddress", UpdateIPAddressToPPD, false},
                    SingleCase{"UsePersonalFolder", UpdateUsePersonalFolderToPPD, true},
                    SingleCase{"AdminLoginModeEnabled", UpdateAdminLoginModeToPPD, true}),
    [](const auto& row) { return std::string(row.param.keyword); });

struct FamilyCase {
  const char* keyword;
  Updater* updater;
  int lastIndex;
};

void PrintTo(const FamilyCase& row, std::ostream* out) { *out << row.keyword; }

class Family : public testing::TestWithParam<FamilyCase> {
 protected:
  std::string name(int index, int part) const {
    return GetParam().keyword + std::to_string(index) + "_Part" + std::to_string(part);
  }
  platform::FakePlatform platform_;
};

TEST_P(Family, WritesAllPartsOfAnEntryBeforeTheNextEntry) {
  const Job job = jobOf({{name(10, 1), "E"},
                         {name(2, 1), "D"},
                         {name(0, 2), "B"},
                         {name(0, 6), "C"},
                         {name(0, 1), "A"}});
  EXPECT_EQ(update(GetParam().updater, job),
            "yes PPD: " + name(0, 1) + "=A\nPPD: " + name(0, 2) + "=B\nPPD: " + name(0, 6) +
                "=C\nPPD: " + name(2, 1) + "=D\nPPD: " + name(10, 1) + "=E\n");
}

TEST_P(Family, WritesEveryMatch) {
  EXPECT_EQ(update(GetParam().updater, jobOf({{name(0, 1), "A"}, {name(0, 1), "B"}})),
            "yes PPD: " + name(0, 1) + "=A\nPPD: " + name(0, 1) + "=B\n");
}

TEST_P(Family, WritesNothingAfterItsLastIndexOrPart) {
  const int last = GetParam().lastIndex;
  EXPECT_EQ(update(GetParam().updater, jobOf({{name(last, 6), "A"}})),
            "yes PPD: " + name(last, 6) + "=A\n");
  EXPECT_EQ(update(GetParam().updater, jobOf({{name(last + 1, 1), "A"},
                                              {name(0, 7), "A"},
                                              {name(0, 0), "A"},
                                              {GetParam().keyword, "A"}})),
            "no ");
}

INSTANTIATE_TEST_SUITE_P(
    All, Family,
    testing::Values(FamilyCase{"SharedBoxName", UpdateSharedBoxToPPD, 99},
                    FamilyCase{"SelSharedBoxName", UpdateSharedBoxToPPD, 99},
                    FamilyCase{"PSFormName", UpdatePSFormNameToPPD, 99},
                    FamilyCase{"BarcodeAreaDefName", UpdateBarcodeAreaDefNameToPPD, 99},
                    FamilyCase{"ColorProfileName", UpdateColorProfilesNameToPPD, 29}),
    [](const auto& row) { return std::string(row.param.keyword); });

TEST_F(UpdateJob, WritesSharedBoxesOfLowerIndexFirst) {
  EXPECT_EQ(update(UpdateSharedBoxToPPD,
                   jobOf({{"SharedBoxName1_Part1", "B"}, {"SharedBoxName0_Part2", "A"}})),
            "yes PPD: SharedBoxName0_Part2=A\nPPD: SharedBoxName1_Part1=B\n");
}

TEST_F(UpdateJob, WritesBoxesThenSelectedBoxesThenTheirIndexes) {
  const Job job = jobOf({{"SelSharedBoxIndex1", "4"},
                         {"SelSharedBoxIndex0", "3"},
                         {"SelSharedBoxIndex0", "9"},
                         {"SelSharedBoxName0_Part1", "B"},
                         {"SharedBoxName99_Part6", "A"}});
  EXPECT_EQ(update(UpdateSharedBoxToPPD, job),
            "yes PPD: SharedBoxName99_Part6=A\nPPD: SelSharedBoxName0_Part1=B\n"
            "PPD: SelSharedBoxIndex0=3\nPPD: SelSharedBoxIndex1=4\n");
}

TEST_F(UpdateJob, WritesSelectedIndexesAlone) {
  EXPECT_EQ(update(UpdateSharedBoxToPPD, jobOf({{"SelSharedBoxIndex99", "0"}})),
            "yes PPD: SelSharedBoxIndex99=0\n");
  EXPECT_EQ(update(UpdateSharedBoxToPPD,
                   jobOf({{"SelSharedBoxIndex100", "0"}, {"SelSharedBoxIndex0_Part1", "0"}})),
            "no ");
}

TEST_F(UpdateJob, NeverWritesColorProfileThirty) {
  EXPECT_EQ(update(UpdateColorProfilesNameToPPD, jobOf({{"ColorProfileName30_Part1", "QQ=="}})),
            "no ");
}

TEST_F(UpdateJob, WritesAllPrintableAsciiThatForgesNothing) {
  const std::string value = "!#$%&()*+,-./09:;<=>?@AZ[]^_`az{|}~";
  EXPECT_EQ(update(UpdateIPAddressToPPD, jobOf({{"PrinterIPAddress", value}})),
            "yes PPD: PrinterIPAddress=" + value + "\n");
  EXPECT_THAT(platform_.systemLog.messages, IsEmpty());
}

TEST_F(UpdateJob, LeavesOutAValueThatCouldForgeAndNamesItsKeywordOnly) {
  for (const std::string value : {"1\nPPD:Forged=1", "1 Forged=1", "\"1", "'1", "1\\", "\t", "\x01",
                                  "\x7F", "\x80", "\xC3\xBC"}) {
    platform_.systemLog.messages.clear();
    EXPECT_EQ(update(UpdateIsWakeOnLanToPPD, jobOf({{"IsWakeOnLan", value}})), "no ") << value;
    EXPECT_THAT(platform_.systemLog.messages,
                ElementsAre("[Driver] PPD keyword IsWakeOnLan not updated: its value could forge "
                            "other keywords"));
  }
}

TEST_F(UpdateJob, LeavesOutTheFirstMatchWithoutTakingTheSecond) {
  EXPECT_EQ(update(UpdateIsWakeOnLanToPPD, jobOf({{"IsWakeOnLan", "a b"}, {"IsWakeOnLan", "1"}})),
            "no ");
}

TEST_F(UpdateJob, WritesTheOtherLinesOfAFamilyBesideOneThatCouldForge) {
  const Job job = jobOf({{"PSFormName0_Part1", "a b"}, {"PSFormName0_Part2", "QQ=="}});
  EXPECT_EQ(update(UpdatePSFormNameToPPD, job), "yes PPD: PSFormName0_Part2=QQ==\n");
  EXPECT_THAT(platform_.systemLog.messages, ElementsAre(HasSubstr("PSFormName0_Part1")));
}

// libcups reads lines of 255 bytes: "*", keyword, ": ", value.
TEST_F(UpdateJob, LeavesOutALineThatLibcupsWouldNotReadBack) {
  const std::string longest(252 - 16, 'A');
  EXPECT_EQ(update(UpdateIPAddressToPPD, jobOf({{"PrinterIPAddress", longest}})),
            "yes PPD: PrinterIPAddress=" + longest + "\n");
  EXPECT_THAT(platform_.systemLog.messages, IsEmpty());
  for (const std::size_t more : {std::size_t{1}, std::size_t{2000}, std::size_t{4072 - 236}}) {
    platform_.systemLog.messages.clear();
    EXPECT_EQ(update(UpdateIPAddressToPPD,
                     jobOf({{"PrinterIPAddress", longest + std::string(more, 'A')}})),
              "no ");
    EXPECT_THAT(platform_.systemLog.messages,
                ElementsAre("[Driver] PPD keyword PrinterIPAddress not updated: CUPS could not "
                            "read the PPD with a value that long"));
  }
}

TEST_F(UpdateJob, CountsTheWholeKeywordOfAPart) {
  const std::string longest(252 - 24, 'A');
  EXPECT_EQ(update(UpdateColorProfilesNameToPPD, jobOf({{"ColorProfileName29_Part6", longest}})),
            "yes PPD: ColorProfileName29_Part6=" + longest + "\n");
  EXPECT_EQ(
      update(UpdateColorProfilesNameToPPD, jobOf({{"ColorProfileName29_Part6", longest + "A"}})),
      "no ");
}

// 00:11:22:33:44, seven parts, a part of three digits, one without digits, "x", and what is not
// UTF-8.
TEST_F(UpdateJob, LeavesOutAMacAddressThatWouldEndLaterJobs) {
  for (const std::string value : {"MDA6MTE6MjI6MzM6NDQ=", "MDA6MTE6MjI6MzM6NDQ6NTU6NjY=",
                                  "MDAwOjE6Mjo0OjU6Ng==", "MDo6MToyOjM6NA==", "eA==", "gIA="}) {
    platform_.systemLog.messages.clear();
    EXPECT_EQ(update(UpdateMacAddressToPPD, jobOf({{"PrinterMacAddress", value}})), "no ") << value;
    EXPECT_THAT(
        platform_.systemLog.messages,
        ElementsAre(
            "[Driver] PPD keyword PrinterMacAddress not updated: its value is not a MAC address"));
  }
}

// The empty text, also as Base64 of nothing, and the address that is all zero.
TEST_F(UpdateJob, WritesAMacAddressThatMeansNone) {
  for (const std::string value : {"", "====", kNoMac}) {
    EXPECT_EQ(update(UpdateMacAddressToPPD, jobOf({{"PrinterMacAddress", value}})),
              "yes PPD: PrinterMacAddress=" + value + "\n");
  }
}

// The process ends by abort() before it writes the line; the lines before are already written. What
// it writes to the system log goes to standard error here, so that the test sees it.
class LogOnStandardError final : public platform::SystemLog {
 public:
  void error(const std::string& message) override { std::fprintf(stderr, "<%s>", message.c_str()); }
};

TEST_F(UpdateJob, AbortsAtALineThatDoesNotFitItsBuffer) {
  const Job job =
      jobOf({{"PSFormName0_Part1", "QQ=="}, {"PSFormName0_Part2", std::string(4097 - 24, 'A')}});
  LogOnStandardError log;
  platform::Platform set = platform::platform();
  set.systemLog = &log;
  const platform::ScopedPlatform scope(set);
  EXPECT_EXIT(UpdatePSFormNameToPPD(job), testing::KilledBySignal(SIGABRT),
              "^PPD: PSFormName0_Part1=QQ==\n<\\[Driver\\] PPD keyword PSFormName0_Part2 not "
              "updated: its value is too long; the update job ends>$");
}

}  // namespace
}  // namespace kelm::ppdsettings
