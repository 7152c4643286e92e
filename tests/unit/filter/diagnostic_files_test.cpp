// The diagnostic files of every golden case: its whole input and output, except the lines that are
// never logged.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "base/hex_text.hpp"
#include "job/job_setup.hpp"
#include "job/ppd_calls.hpp"
#include "tests/support/diagnostics_on.hpp"
#include "tests/support/logged_job.hpp"
#include "tests/support/memory_job.hpp"
#include "tests/support/reference_loop.hpp"

namespace kelm::filter {
namespace {

namespace fs = std::filesystem;

std::string textOf(const fs::path& file) {
  std::string text = tests::readFile(file).value_or("");
  if (text.ends_with('\n')) text.pop_back();
  return text;
}

tests::ReferenceJob loggedJob(const std::string& input, job::PrintJobData& job) {
  tests::DiagnosticsOn diagnostics;
  return tests::loggedJob(diagnostics, input, job);
}

void expectWholeFiles(const std::string& input, job::PrintJobData& job) {
  decideCustomPaper(job);
  decideOutputFace(job);
  const tests::ReferenceJob actual = loggedJob(input, job);
  const platform::FakePlatform platform;
  const auto expected = tests::referenceJob(input, job);
  EXPECT_EQ(actual.output, expected.output);
  EXPECT_EQ(actual.asRead, expected.asRead);
  EXPECT_EQ(actual.asWritten, expected.asWritten);
}

void expectWholeFilesOfCase(const fs::path& directory) {
  SCOPED_TRACE(directory);
  const std::string title = textOf(directory / "title");
  tests::TestJob job = tests::TestJob::parsed(textOf(directory / "options").c_str());
  job->title = title.c_str();
  job->jobNameHex = base::hexTextInBuffer(title);
  if (fs::exists(directory / "ppd")) {
    const fs::path ppd = fs::path(KELM_PPDS_DIR) / textOf(directory / "ppd");
    job->ppd = job::r_ppdOpenFile(ppd.c_str());
  }
  expectWholeFiles(tests::readFile(directory / "in.ps").value(), *job);
}

std::vector<fs::path> jobsOf(const fs::path& cases) {
  std::vector<fs::path> jobs;
  for (const auto& entry : fs::recursive_directory_iterator(cases)) {
    const bool isJob = entry.path().filename() == "in.ps" && entry.file_size() > 0 &&
                       !fs::exists(entry.path().parent_path() / "argv");
    if (isJob) jobs.push_back(entry.path().parent_path());
  }
  return jobs;
}

TEST(DiagnosticFilesOfEveryCase, HoldInputAndOutput) {
  const std::vector<fs::path> jobs = jobsOf(KELM_CASES_DIR);
  EXPECT_GT(jobs.size(), 100U);
  for (const fs::path& directory : jobs) expectWholeFilesOfCase(directory);
}

// Expected files that are written by hand, so that the reference loop is not the only check.
class DiagnosticFilesOfALine : public testing::Test {
 protected:
  static tests::ReferenceJob logged(const std::string& input,
                                    const tests::TestJob::Options& options = {}) {
    tests::TestJob job(options);
    decideCustomPaper(*job);
    decideOutputFace(*job);
    return loggedJob(input, *job);
  }
};

TEST_F(DiagnosticFilesOfALine, HoldItAsReadAndAsWritten) {
  const std::string input =
      "%!PS\nplain 50% of\n%%BeginFeature: *QVPageNumStartNum 1\n(1) set\n%%EndFeature\n"
      "%%BeginFeature: *QVOutputFace FaceUp\n(FaceUp) set\n%%EndFeature\n"
      "%%BeginFeature: *QVBarcodeProof On\n(XXX) proof\n%%EndFeature\nthe end";
  const std::string output =
      "%!PS\nplain 50% of\n%%BeginFeature: *QVPageNumStartNum 1\n(5) set\n%%EndFeature\n"
      "%%BeginFeature: *QVOutputFace FaceDown\n(FaceDown) set\n%%EndFeature\n"
      "%%BeginFeature: *QVBarcodeProof On\n(XXX) proof\n%%EndFeature\nthe end";
  const auto files = logged(input, {{"PrintPDE", ""}, {"QVPageNumStartNumValue", "5"}});
  EXPECT_EQ(files.output, output);
  EXPECT_EQ(files.asRead, input);
  EXPECT_EQ(files.asWritten, output);
}

TEST_F(DiagnosticFilesOfALine, HoldADroppedOneAsReadOnly) {
  const auto files = logged("%%BeginFeature: *QVPageNumStartNum 1\n(1) set\n%%EndFeature\n");
  EXPECT_EQ(files.asRead, "%%BeginFeature: *QVPageNumStartNum 1\n(1) set\n%%EndFeature\n");
  EXPECT_EQ(files.asWritten, "%%BeginFeature: *QVPageNumStartNum 1\n%%EndFeature\n");
}

TEST_F(DiagnosticFilesOfALine, HoldACopiedOneTwice) {
  const auto files = logged("%%BeginFeature: *QVGCCyan 1\n(100) cyan\n%%EndFeature\n");
  EXPECT_EQ(files.asRead, "%%BeginFeature: *QVGCCyan 1\n(100) cyan\n%%EndFeature\n");
  EXPECT_EQ(files.asWritten, files.asRead);
}

TEST_F(DiagnosticFilesOfALine, HoldNoZeroBytes) {
  const std::string bytes("a\0b%c\0d\n\0", 9);
  const auto files = logged(bytes);
  EXPECT_EQ(files.output, bytes);
  EXPECT_EQ(files.asRead, "ab%cd\n");
  EXPECT_EQ(files.asWritten, "ab%cd\n");
}

TEST_F(DiagnosticFilesOfALine, HoldATurnedCommentAsWritten) {
  const auto files = logged("%%BeginFeature: *QVOrientation Portrait\n", {{"QVOrientation", "1"}});
  EXPECT_EQ(files.asRead, "%%BeginFeature: *QVOrientation Portrait\n");
  EXPECT_EQ(files.asWritten, "%%BeginFeature: *QVOrientation Landscape\n");
}

// Written by hand as well.
TEST(DiagnosticFilesOfAPlainJob, HoldTheFilledInValues) {
  constexpr char kInput[] =
      "%%BeginFeature: *QVJobComment Custom.Hello\nHello\n(XXX) comment\n%%EndFeature\n"
      "%%BeginFeature: *QVOrientation Portrait\n(Portrait) turn\n%%EndFeature\n"
      "%%BeginFeature: *QVOwnerName Off\n(XXX) owner\n%%EndFeature\n"
      "%%BeginFeature: *QVGCRed 1\n(5) red\n%%EndFeature\n"
      "%%BeginFeature: *QVTextInfo a\n(a) text\n%%EndFeature\n";
  tests::TestJob job({{"QVJobComment", "Custom.Hello"}, {"QVOrientation", "Landscape"}});
  const tests::ReferenceJob files = loggedJob(kInput, *job);
  EXPECT_EQ(files.asRead,
            "%%BeginFeature: *QVJobComment Custom.Hello\nHello\n(XXX) comment\n%%EndFeature\n"
            "%%BeginFeature: *QVOrientation Portrait\n(Portrait) turn\n%%EndFeature\n"
            "%%BeginFeature: *QVOwnerName Off\n(XXX) owner\n%%EndFeature\n"
            "%%BeginFeature: *QVGCRed 1\n%%EndFeature\n"
            "%%BeginFeature: *QVTextInfo a\n%%EndFeature\n");
  EXPECT_EQ(files.asWritten,
            "%%BeginFeature: *QVJobComment Custom.Hello\n(48656C6C6F) comment\n%%EndFeature\n"
            "%%BeginFeature: *QVOrientation Landscape\n(Landscape) turn\n%%EndFeature\n"
            "%%BeginFeature: *QVOwnerName Off\n(Off) owner\n%%EndFeature\n"
            "%%BeginFeature: *QVGCRed 1\n%%EndFeature\n"
            "%%BeginFeature: *QVTextInfo a\n%%EndFeature\n");
}

// Written by hand as well. The first override has its own code. The others are left to their
// writers; that of the text stamp logs nothing.
TEST(DiagnosticFilesOfSettledOptions, HoldWhatWasReplacedAndWhatReplacesIt) {
  constexpr char kInput[] =
      "%%BeginFeature: *QVDuplex OFF\n(OFF) duplex\n%%second line\n%%EndFeature\n"
      "%%BeginFeature: *CustomQVJobComment True\n(Hello)\n(XXX) comment\n%%EndFeature\n"
      "%%BeginFeature: *CustomQVTextInfo True\n(Hello)\n(XXX) text\n%%EndFeature\nshowpage\n";
  tests::TestJob job(tests::TestJob::Options{{"QVJobComment", "Hello"}});
  job->overrides = {{"QVDuplex", "LongEdge", "(LongEdge) duplex"},
                    {"QVJobComment", "Hello", ""},
                    {"QVTextInfo", "Hello", ""}};
  const tests::ReferenceJob files = loggedJob(kInput, *job);
  EXPECT_EQ(files.asRead,
            "%%BeginFeature: *QVDuplex OFF\n(OFF) duplex\n%%second line\n%%EndFeature\n"
            "%%BeginFeature: *CustomQVJobComment True\n(Hello)\n(XXX) comment\n%%EndFeature\n"
            "%%BeginFeature: *CustomQVTextInfo True\n(Hello)\n%%EndFeature\nshowpage\n");
  EXPECT_EQ(files.asWritten,
            "%%BeginFeature: *QVDuplex LongEdge\n(LongEdge) duplex\n%%EndFeature\n"
            "%%BeginFeature: *QVJobComment Hello\n(48656C6C6F) comment\n%%EndFeature\n"
            "%%BeginFeature: *QVTextInfo Hello\n%%EndFeature\nshowpage\n");
}

TEST(DiagnosticFilesOfSeveralCopies, HoldTheRequestAsReadAndNotAsWritten) {
  constexpr char kInput[] =
      "%!PS-Adobe-3.0\n%%Requirements: numcopies(3) collate duplex\n%RBINumCopies: 3\n%%Pages: 1\n"
      "%RBIBeginNonPPDFeature: *NumCopies 3\n3/languagelevel where\n%RBIEndNonPPDFeature\n"
      "%%BeginFeature: *QVJobComment Custom.Hello\nHello\n(XXX) comment\n%%EndFeature\nshowpage\n";
  tests::TestJob job(tests::TestJob::Options{{"QVJobComment", "Custom.Hello"}});
  job->copiesOfHeader = 3;
  const tests::ReferenceJob files = loggedJob(kInput, *job);
  EXPECT_EQ(files.asRead, kInput);
  EXPECT_EQ(files.asWritten,
            "%!PS-Adobe-3.0\n%%Requirements: duplex\n%%Pages: 1\n"
            "%%BeginFeature: *QVJobComment Custom.Hello\n(48656C6C6F) comment\n%%EndFeature\n"
            "showpage\n");
  EXPECT_EQ(files.output, files.asWritten);
}

// More such jobs, against the reference loop.
TEST(DiagnosticFilesOfSettledJobs, HoldInputAndOutput) {
  for (const char* options :
       {"settle-QVDuplex=(LongEdge)", "settle-QVJobComment= QVJobComment=Hello",
        "settle-QVTextInfo= settle-QVGCRed=", "settle-copies=3", "settle-copies=30",
        "settle-copies=3 settle-QVDuplex=(x) settle-QVPageTrayRepeat="}) {
    SCOPED_TRACE(options);
    tests::TestJob job = tests::TestJob::parsed(options);
    tests::settle(*job);
    expectWholeFiles(
        "%!PS-Adobe-3.0\n%%Requirements: numcopies(3) collate\n%RBINumCopies: 3\n"
        "%RBIBeginNonPPDFeature: *NumCopies 3\n3/x\n%RBIEndNonPPDFeature\n"
        "%%BeginFeature: *QVDuplex OFF\n(OFF) duplex\n%%EndFeature\n"
        "%%BeginFeature: *CustomQVJobComment True\n(Hello)\n(XXX) comment\n%%EndFeature\n"
        "%%BeginFeature: *CustomQVTextInfo True\n(Hello)\n(XXX) text\n%%EndFeature\n"
        "%%BeginFeature: *CustomQVGCRed True\n5\n(5) red\n%%EndFeature\n"
        "%%BeginFeature: *QVPageTrayRepeat a\n(a) repeat\n(b)\n%%EndFeature\n"
        "%%BeginFeature: *QVDuplex OFF\n(cut",
        *job);
  }
}

}  // namespace
}  // namespace kelm::filter
