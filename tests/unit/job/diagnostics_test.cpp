// The diagnostic files: their switch, their names, and what every call appends.
// SPDX-License-Identifier: Apache-2.0
#include "job/diagnostics.hpp"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "job/print_job.hpp"
#include "tests/support/diagnostics_on.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::job {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using tests::DiagnosticsOn;
using tests::TestJob;

void writeToEveryFile() {
  LogFile1Message("text", true);
  LogFile2Message_char("text", true);
  LogFile3Message_char("text", true);
  LogFile2Message('c');
  LogFile3Message('c');
  LogFile2Run("run");
  LogFile3Run("run");
  LogFile3Message_char_join("%d", 7, true);
}

TEST(DiagnosticSwitch, IsOffWithoutItsFileAndWritesNothing) {
  const tests::TemporaryDirectory root;
  fs::create_directories(root.path() / "Library/Caches");
  platform::FakePlatform platform;
  platform.fileRoot.root = root.path().string();
  EXPECT_FALSE(diagnosticsWanted());
  LogFileMessageCheck(diagnosticsWanted());
  TestJob job(TestJob::Options{{"DestinationPrinterID", "P1"}});
  ClearLogFileName(&*job);
  writeToEveryFile();
  LogOptions(&*job);
  EXPECT_STREQ(file_1_Name, "");
  EXPECT_STREQ(file_2_Name, "");
  EXPECT_STREQ(file_3_Name, "");
  EXPECT_THAT(root.names("Library/Caches"), ElementsAre());
}

TEST(DiagnosticSwitch, IsOnWithAnEmptyFile) {
  const DiagnosticsOn diagnostics;
  EXPECT_TRUE(diagnosticsWanted());
}

TEST(DiagnosticSwitch, IsTheFlagOfEveryCall) {
  DiagnosticsOn diagnostics;
  diagnostics.nameFiles();
  LogFileMessageCheck(false);
  EXPECT_FALSE(fileOutPutFlag);
  writeToEveryFile();
  EXPECT_EQ(diagnostics.content(file_1_Name), "no file");
  EXPECT_EQ(diagnostics.content(file_2_Name), "no file");
  EXPECT_EQ(diagnostics.content(file_3_Name), "no file");
  LogFileMessageCheck(true);
  EXPECT_TRUE(fileOutPutFlag);
}

class DiagnosticNames : public testing::Test {
 protected:
  static void nameFor(const TestJob::Options& options) {
    TestJob job(options);
    ClearLogFileName(&*job);
  }
  DiagnosticsOn diagnostics_;
};

TEST_F(DiagnosticNames, HaveThePrinterIdAndTheTime) {
  nameFor({{"DestinationPrinterID", "P1"}});
  EXPECT_STREQ(file_1_Name, "/Library/Caches/P1_1_20160930140509.txt");
  EXPECT_STREQ(file_2_Name, "/Library/Caches/P1_2_20160930140509.txt");
  EXPECT_STREQ(file_3_Name, "/Library/Caches/P1_3_20160930140509.txt");
}

TEST_F(DiagnosticNames, HaveTheTimeAloneWithoutAPrinterId) {
  nameFor({});
  EXPECT_STREQ(file_1_Name, "/Library/Caches/1_20160930140509.txt");
  EXPECT_STREQ(file_2_Name, "/Library/Caches/2_20160930140509.txt");
  EXPECT_STREQ(file_3_Name, "/Library/Caches/3_20160930140509.txt");
}

TEST_F(DiagnosticNames, HaveAPrinterIdThatIsEmpty) {
  nameFor({{"DestinationPrinterID", ""}});
  EXPECT_STREQ(file_1_Name, "/Library/Caches/_1_20160930140509.txt");
}

TEST_F(DiagnosticNames, DoNotUseAPrinterIdThatLeadsElsewhere) {
  nameFor({{"DestinationPrinterID", "../../etc/P1"}});
  EXPECT_STREQ(file_1_Name, "/Library/Caches/1_20160930140509.txt");
  nameFor({{"DestinationPrinterID", "/"}});
  EXPECT_STREQ(file_3_Name, "/Library/Caches/3_20160930140509.txt");
}

TEST_F(DiagnosticNames, TakeThePrinterIdAsText) {
  nameFor({{"DestinationPrinterID", "%s%n P"}});
  EXPECT_STREQ(file_1_Name, "/Library/Caches/%s%n P_1_20160930140509.txt");
}

TEST_F(DiagnosticNames, FillUpNumbersWithZeros) {
  diagnostics_.platform.wallClock.now = {};
  diagnostics_.platform.wallClock.now.tm_year = 101;
  diagnostics_.platform.wallClock.now.tm_mday = 2;
  nameFor({});
  EXPECT_STREQ(file_1_Name, "/Library/Caches/1_20010102000000.txt");
}

TEST_F(DiagnosticNames, AreCutAt511Bytes) {
  nameFor({{"DestinationPrinterID", std::string(600, 'p')}});
  EXPECT_EQ(file_1_Name, "/Library/Caches/" + std::string(495, 'p'));
  nameFor({{"DestinationPrinterID", std::string(493, 'p')}});
  EXPECT_EQ(file_2_Name, "/Library/Caches/" + std::string(493, 'p') + "_2");
}

TEST_F(DiagnosticNames, StayAsTimeGoesOn) {
  nameFor({});
  diagnostics_.platform.wallClock.now.tm_sec = 10;
  LogFile1Message("a", false);
  EXPECT_THAT(diagnostics_.caches() / "1_20160930140509.txt",
              testing::Truly([](const fs::path& path) { return fs::exists(path); }));
}

class DiagnosticFiles : public testing::Test {
 protected:
  DiagnosticFiles() { diagnostics_.nameFiles(); }
  std::string first() { return diagnostics_.content(file_1_Name); }
  std::string second() { return diagnostics_.content(file_2_Name); }
  std::string third() { return diagnostics_.content(file_3_Name); }
  fs::path pathOf(int number) {
    return diagnostics_.caches() / (std::to_string(number) + "_20160930140509.txt");
  }
  DiagnosticsOn diagnostics_;
};

TEST_F(DiagnosticFiles, AreThereOnlyOnceSomethingIsWritten) {
  EXPECT_EQ(first(), "no file");
  LogFile1Message("a", false);
  EXPECT_EQ(first(), "a");
  EXPECT_EQ(second(), "no file");
}

TEST_F(DiagnosticFiles, GrowByTextsAndLineFeeds) {
  LogFile1Message("a", false);
  LogFile1Message("b", true);
  LogFile1Message("", true);
  EXPECT_EQ(first(), "ab\n\n");
  LogFile2Message_char("c", true);
  LogFile2Message_char("d", false);
  EXPECT_EQ(second(), "c\nd");
  LogFile3Message_char("%s", true);
  EXPECT_EQ(third(), "%s\n");
}

TEST_F(DiagnosticFiles, GrowBySingleCharacters) {
  for (const int c : {0x61, 0x0A, 0xFF}) {
    LogFile2Message(c);
    LogFile3Message(c);
  }
  EXPECT_EQ(second(), "a\n\xFF");
  EXPECT_EQ(third(), "a\n\xFF");
}

TEST_F(DiagnosticFiles, TakeNoZeroByte) {
  for (const int c : {0x61, 0, 0x62}) {
    LogFile2Message(c);
    LogFile3Message(c);
  }
  EXPECT_EQ(second(), "ab");
  EXPECT_EQ(third(), "ab");
}

TEST_F(DiagnosticFiles, GrowByRunsWithoutTheirZeroBytes) {
  LogFile2Run({"a\0b\0\0c\n", 7});
  LogFile3Run("xy");
  LogFile3Run({"\0z", 2});
  EXPECT_EQ(second(), "abc\n");
  EXPECT_EQ(third(), "xyz");
}

TEST_F(DiagnosticFiles, TakeALongRunWhole) {
  const std::string run = std::string(200000, 'a') + "b";
  LogFile2Run(run);
  EXPECT_TRUE(second() == run);
}

TEST_F(DiagnosticFiles, AreNotMadeByAnEmptyRun) {
  LogFile2Run("");
  LogFile3Run("");
  EXPECT_EQ(second(), "no file");
  EXPECT_EQ(third(), "no file");
}

TEST_F(DiagnosticFiles, TakeAFormattedValue) {
  LogFile3Message_char_join("length %03d", 7, true);
  LogFile3Message_char_join("%d", -1, false);
  EXPECT_EQ(third(), "length 007\n-1");
  EXPECT_EQ(second(), "no file");
}

TEST_F(DiagnosticFiles, CutAFormattedValueAt255Bytes) {
  LogFile3Message_char_join("%0300d", 7, true);
  EXPECT_EQ(third(), std::string(255, '0') + "\n");
}

TEST_F(DiagnosticFiles, TakeAFormattedValueOf255BytesWhole) {
  LogFile3Message_char_join("%0255d", 7, false);
  EXPECT_EQ(third(), std::string(254, '0') + "7");
}

TEST_F(DiagnosticFiles, AreOpenedAgainForEveryCall) {
  LogFile2Message_char("before", true);
  fs::rename(pathOf(2), diagnostics_.caches() / "moved.txt");
  LogFile2Message_char("after", true);
  EXPECT_EQ(second(), "after\n");
  EXPECT_EQ(tests::readFile(diagnostics_.caches() / "moved.txt"), "before\n");
}

TEST_F(DiagnosticFiles, StayOpenBetweenNoCalls) {
  const auto openFiles = [] {
    const fs::directory_iterator files("/dev/fd");
    return std::distance(begin(files), end(files));
  };
  const auto before = openFiles();
  writeToEveryFile();
  EXPECT_EQ(openFiles(), before);
}

TEST_F(DiagnosticFiles, AreOnlyAppendedTo) {
  tests::writeFile(pathOf(1), "the job before\n");
  diagnostics_.nameFiles();
  ClearLogFile();
  LogFile1Message("this job", true);
  EXPECT_EQ(first(), "the job before\nthis job\n");
}

TEST_F(DiagnosticFiles, AreNotReachedThroughALink) {
  const fs::path target = diagnostics_.caches() / "target.txt";
  tests::writeFile(target, "as it was");
  fs::create_symlink(target, pathOf(3));
  LogFile3Message_char("text", true);
  EXPECT_EQ(tests::readFile(target), "as it was");
}

TEST_F(DiagnosticFiles, AreLeftOutWhereTheyCannotBeOpened) {
  fs::create_directory(pathOf(1));
  LogFile1Message("text", true);
  fs::remove_all(diagnostics_.caches());
  writeToEveryFile();
  EXPECT_FALSE(fs::exists(diagnostics_.caches()));
}

TEST_F(DiagnosticFiles, AreNotWrittenIntoAFileOfAnotherUser) {
  tests::writeFile(pathOf(1), "planted");
  ASSERT_EQ(chown(pathOf(1).c_str(), 65534, 65534), 0) << "run the tests as root";
  LogFile1Message("text", true);
  EXPECT_EQ(tests::readFile(pathOf(1)), "planted");
}

TEST_F(DiagnosticFiles, AreNotReachedThroughAHardLinkOrAFifo) {
  const fs::path target = diagnostics_.caches() / "target.txt";
  tests::writeFile(target, "as it was");
  fs::create_hard_link(target, pathOf(1));
  LogFile1Message("text", true);
  EXPECT_EQ(tests::readFile(target), "as it was");
  ASSERT_EQ(mkfifo(pathOf(2).c_str(), 0600), 0);
  LogFile2Message_char("text", true);  // does not wait for a reader
}

TEST_F(DiagnosticFiles, AreForTheirUserAlone) {
  const mode_t before = umask(0);
  LogFile1Message("text", true);
  umask(before);
  struct stat status {};
  ASSERT_EQ(stat(pathOf(1).c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST_F(DiagnosticFiles, TakeNoTrace) {
  LogMessage("Filter started", true);
  EXPECT_EQ(first(), "no file");
  EXPECT_EQ(second(), "no file");
  EXPECT_EQ(third(), "no file");
}

TEST_F(DiagnosticFiles, HaveALineForEveryOption) {
  const TestJob::Options options{{"a", "1"}, {"media", "Custom.595x842"}, {"QVJobComment", ""}};
  TestJob job(options);
  LogOptions(&*job);
  EXPECT_EQ(first(), "a=1\nmedia=Custom.595x842\nQVJobComment=\n");
}

TEST_F(DiagnosticFiles, HaveNoLineWithoutOptions) {
  const PrintJobData job;
  LogOptions(&job);
  LogOptions(nullptr);
  EXPECT_EQ(first(), "no file");
}

TEST(DiagnosticFilesWithoutNames, AreNotWritten) {
  const DiagnosticsOn diagnostics;
  writeToEveryFile();
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(diagnostics.caches())) {
    names.push_back(entry.path().filename());
  }
  EXPECT_EQ(names, std::vector<std::string>{"file.txt"});
}

}  // namespace
}  // namespace kelm::job
