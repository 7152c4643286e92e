// The diagnostic files of every golden case: all of its input and output, except the lines that no
// file holds.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "base/hex_text.hpp"
#include "filter/copy_loop.hpp"
#include "job/diagnostics.hpp"
#include "job/job_setup.hpp"
#include "job/ppd_calls.hpp"
#include "psrewrite/job_stream.hpp"
#include "tests/support/diagnostics_on.hpp"
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

struct JobFiles {
  std::string output;
  std::string asRead;
  std::string asWritten;
};

JobFiles loggedJob(const std::string& input, job::PrintJobData& job) {
  tests::DiagnosticsOn diagnostics;
  diagnostics.nameFiles();
  tests::MemorySource source(input);
  tests::MemoryOutput output;
  psrewrite::JobStream stream(source, output.stream());
  copyPostScript(stream, job);
  return {output.text(), diagnostics.content(job::file_2_Name),
          diagnostics.content(job::file_3_Name)};
}

void expectWholeFiles(const std::string& input, job::PrintJobData& job) {
  decideCustomPaper(job);
  decideOutputFace(job);
  const JobFiles actual = loggedJob(input, job);
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

// Written by hand, so that the reference loop is not the only check.
TEST(DiagnosticFilesOfAPlainJob, HoldTheFilledInValues) {
  constexpr char kInput[] =
      "%%BeginFeature: *QVJobComment Custom.Hello\nHello\n(XXX) comment\n%%EndFeature\n"
      "%%BeginFeature: *QVOrientation Portrait\n(Portrait) turn\n%%EndFeature\n"
      "%%BeginFeature: *QVOwnerName Off\n(XXX) owner\n%%EndFeature\n"
      "%%BeginFeature: *QVGCRed 1\n(5) red\n%%EndFeature\n"
      "%%BeginFeature: *QVTextInfo a\n(a) text\n%%EndFeature\n";
  tests::TestJob job({{"QVJobComment", "Custom.Hello"}, {"QVOrientation", "Landscape"}});
  const JobFiles files = loggedJob(kInput, *job);
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

}  // namespace
}  // namespace kelm::filter
