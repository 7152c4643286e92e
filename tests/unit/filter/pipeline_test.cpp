// The stages of a job. Each job runs in its own process.
// SPDX-License-Identifier: Apache-2.0
#include "filter/pipeline.hpp"

#include <gmock/gmock.h>
#include <sys/types.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "base/byte_source.hpp"
#include "job/diagnostics.hpp"
#include "tests/support/child.hpp"
#include "tests/support/diagnostics_on.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::filter {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

// The exit status and the output. The environment has no language, and only the given PPD.
std::string run(std::vector<std::string> arguments, const std::string& ppd = "") {
  for (const char* name : {"APPLE_LANGUAGE", "LANG", "PPD"}) unsetenv(name);
  if (!ppd.empty()) setenv("PPD", ppd.c_str(), 1);
  std::vector<char*> argv;
  for (std::string& argument : arguments) argv.push_back(argument.data());
  const auto argc = static_cast<int>(argv.size());
  argv.push_back(nullptr);
  tests::MemoryOutput output;
  const int status = runFilter(argc, argv.data(), output.stream());
  return std::to_string(status) + "|" + output.text();
}

std::vector<std::string> jobOf(const std::string& options, const std::string& file) {
  return {"kelmfilter", "1", "user", "title", "1", options, file};
}

class Pipeline : public testing::Test {
 protected:
  std::string fileOf(std::string_view content) {
    const std::string path = directory_.path() / "in.ps";
    tests::writeFile(path, content);
    return path;
  }
  // The status and output of a job, without diagnostic files.
  std::string printed(std::string_view input, const std::string& options = "") {
    const std::string file = fileOf(input);
    return tests::inChild([&] {
      platform::FakePlatform platform;
      return run(jobOf(options, file));
    });
  }
  tests::TemporaryDirectory directory_;
};

constexpr char kLastHeaderLine[] = "\n@PJL ENTER LANGUAGE=POSTSCRIPT\n";

TEST_F(Pipeline, WritesTheHeaderAndThenThePostScript) {
  const std::string result = printed("%!PS\nshowpage\n");
  EXPECT_THAT(result, StartsWith("0|\x1B%-12345X@PJL\n@PJL COMMENT KELM Printer Driver\n"));
  EXPECT_THAT(result, EndsWith(std::string(kLastHeaderLine) + "%!PS\nshowpage\n"));
}

TEST_F(Pipeline, WritesTheHeaderAloneForAnEmptyInput) {
  EXPECT_THAT(printed(""), StartsWith("0|\x1B%-12345X@PJL\n"));
  EXPECT_THAT(printed(""), EndsWith(kLastHeaderLine));
}

TEST_F(Pipeline, DecidesCustomPaperAndOutputFaceBeforeTheHeader) {
  const std::string input = "%%BeginFeature: *QVOutputFace FaceUp\n(FaceUp)\n%%EndFeature\n";
  const std::string wide = printed(input, "media=Custom.842x595 QVOutputTray=Tray2");
  EXPECT_THAT(wide, HasSubstr("\n@PJL SET ORIENTATION=LANDSCAPE\n"));
  EXPECT_THAT(wide, EndsWith(kLastHeaderLine + input));
}

TEST_F(Pipeline, SettlesStandardOptionsBeforeTheHeader) {
  const std::string file = fileOf("");
  const std::string ppd = directory_.path() / "standard.ppd";
  tests::writeFile(ppd, "*PPD-Adobe: \"4.3\"\n*KelmStandardOptions: True\n");
  EXPECT_THAT(tests::inChild([&] {
                platform::FakePlatform platform;
                return run({"kelmfilter", "1", "user", "title", "3", "", file}, ppd);
              }),
              HasSubstr("\n@PJL SET QTY=3\n"));
}

// The PPD names the printer 00:1B:A9:00:00:01.
TEST_F(Pipeline, WakesThePrinter) {
  const std::string file = fileOf("");
  const std::string ppd = directory_.path() / "waking.ppd";
  tests::writeFile(ppd,
                   "*PPD-Adobe: \"4.3\"\n*IsWakeOnLan: \"1\"\n"
                   "*PrinterMacAddress: \"MDA6MUI6QTk6MDA6MDA6MDE=\"\n");
  EXPECT_EQ(tests::inChild([&] {
              platform::FakePlatform platform;
              platform.wakeUpBus.answersAtOnce = true;
              run(jobOf("", file), ppd);
              std::string woken;
              for (const auto& request : platform.wakeUpBus.requests) woken += request.macAddress;
              return woken;
            }),
            "00:1B:A9:00:00:01");
}

TEST_F(Pipeline, FailsForAnInputThatCannotBeOpened) {
  EXPECT_EQ(tests::inChild([] {
              platform::FakePlatform platform;
              return run(jobOf("", "/nonexistent.ps"));
            }),
            "1|");
}

TEST_F(Pipeline, FailsForAWrongNumberOfArguments) {
  EXPECT_EQ(tests::inChild([] {
              platform::FakePlatform platform;
              if (std::freopen("/dev/null", "w", stderr) == nullptr) return std::string("no file");
              return run({"kelmfilter", "1", "user", "title", "1"});
            }),
            "1|");
}

// Standard error of a job, then its status and the end of its output.
std::string errorsAndEndOf(const std::vector<std::string>& arguments) {
  testing::internal::CaptureStderr();
  const std::string result = run(arguments);
  const std::string errors = testing::internal::GetCapturedStderr();
  return errors + "|" + result.substr(0, 2) + result.substr(result.size() - 10);
}

TEST_F(Pipeline, ReportsAnInputThatCannotBeRead) {
  EXPECT_EQ(tests::inChild([] {
              platform::FakePlatform platform;
              return errorsAndEndOf(jobOf("", "/"));
            }),
            "ERROR: Unable to read the job - Is a directory\n|1|OSTSCRIPT\n");
}

TEST_F(Pipeline, SaysInTheSystemLogWhyAFileCannotBeOpened) {
  EXPECT_EQ(tests::inChild([] {
              platform::FakePlatform platform;
              testing::internal::CaptureStderr();
              run(jobOf("", "/nonexistent.ps"));
              return testing::internal::GetCapturedStderr() + "|" +
                     platform.systemLog.messages.at(0);
            }),
            "|[Driver] cannot open the job's file /nonexistent.ps: No such file or directory");
}

// The small job is written when it is complete, the large one earlier.
TEST_F(Pipeline, EndsWellWhereNothingCanBeWritten) {
  for (const std::size_t size : {1U, 1U << 20U}) {
    const std::string file = fileOf(std::string(size, 'x'));
    EXPECT_EQ(tests::inChild([&] {
                platform::FakePlatform platform;
                std::vector<std::string> arguments = jobOf("", file);
                std::vector<char*> argv;
                for (std::string& argument : arguments) argv.push_back(argument.data());
                argv.push_back(nullptr);
                std::FILE* const full = std::fopen("/dev/full", "w");
                std::setvbuf(full, nullptr, _IOFBF, 1U << 16U);
                return std::to_string(runFilter(7, argv.data(), full));
              }),
              "0")
        << size;
  }
}

void shortly() { std::this_thread::sleep_for(std::chrono::milliseconds(10)); }

bool terminationIsCaught() {
  struct sigaction action {};
  sigaction(SIGTERM, nullptr, &action);
  return action.sa_handler != SIG_DFL;
}

// Notes whether termination was caught when the job first looked at a file.
class WatchingFileRoot final : public platform::FileRoot {
 public:
  std::string locate(std::string_view /*absolutePath*/) const override {
    if (!seen) caught = terminationIsCaught();
    seen = true;
    return "/nonexistent";
  }
  mutable bool seen = false;
  mutable bool caught = false;
};

TEST_F(Pipeline, CatchesTerminationBeforeAnythingElse) {
  const std::string file = fileOf("");
  EXPECT_EQ(tests::inChild([&] {
              platform::FakePlatform fake;
              WatchingFileRoot root;
              platform::Platform set = platform::platform();
              set.fileRoot = &root;
              const platform::ScopedPlatform scope(set);
              run(jobOf("", file));
              struct sigaction action {};
              sigaction(SIGTERM, nullptr, &action);
              return std::string(root.caught ? "first" : "late") +
                     ((action.sa_flags & SA_RESTART) != 0 ? ", restarting calls" : "");
            }),
            "first, restarting calls");
}

// Gives the job two lines, with a termination request between them.
void feed(int pipe) {
  for (int tries = 0; tries < 1000 && !terminationIsCaught(); ++tries) shortly();
  base::writeAll(pipe, std::string_view("one\n"));
  shortly();
  kill(getpid(), SIGTERM);
  shortly();
  base::writeAll(pipe, std::string_view("two\n"));
  close(pipe);
}

TEST_F(Pipeline, RunsToTheEndAfterATerminationRequest) {
  const std::string result = tests::inChild([] {
    platform::FakePlatform platform;
    int ends[2];
    if (pipe(ends) != 0 || dup2(ends[0], STDIN_FILENO) < 0) return std::string("no pipe");
    std::thread feeder(feed, ends[1]);
    std::string text = run({"kelmfilter", "1", "user", "title", "1", ""});
    feeder.join();
    return text;
  });
  EXPECT_THAT(result, testing::StartsWith("0|"));
  EXPECT_THAT(result, EndsWith(std::string(kLastHeaderLine) + "one\ntwo\n"));
}

constexpr char kInput[] =
    "%!PS\n%%BeginFeature: *QVPageNumStartNum 1\n(1) set\n%%EndFeature\nshowpage\n";
constexpr char kWritten[] =
    "%!PS\n%%BeginFeature: *QVPageNumStartNum 1\n(5) set\n%%EndFeature\nshowpage\n";
constexpr char kOptions[] = "PrintPDE DestinationPrinterID=P1 QVPageNumStartNumValue=5";

// The output of the job with the switch file there; its diagnostic files stay in `files`.
std::string printedWithDiagnostics(const std::string& file, std::vector<std::string>& files,
                                   const char* options = kOptions) {
  tests::DiagnosticsOn diagnostics;
  std::string output = tests::inChild([&] {
    job::LogFileMessageCheck(false);  // the job looks for the switch file itself
    return run(jobOf(options, file));
  });
  for (const char* number : {"1", "2", "3"}) {
    const std::string name = std::string("P1_") + number + "_20160930140509.txt";
    files.push_back(tests::readFile(diagnostics.caches() / name).value_or("no file"));
  }
  return output;
}

TEST_F(Pipeline, LeavesOptionsInputAndOutputInTheDiagnosticFiles) {
  std::vector<std::string> files;
  printedWithDiagnostics(fileOf(kInput), files);
  EXPECT_THAT(files, testing::ElementsAre(
                         "DestinationPrinterID=P1\nPrintPDE=true\nQVPageNumStartNumValue=5\n",
                         kInput, kWritten));
}

// For a booklet, the header changes the job's duplex option to the short edge.
TEST_F(Pipeline, KeepsTheOptionsInTheDiagnosticFileAsTheJobHadThem) {
  std::vector<std::string> files;
  printedWithDiagnostics(fileOf(""), files,
                         "DestinationPrinterID=P1 QVBookletBinding=ON QVDuplex=LongEdge");
  EXPECT_THAT(files.at(0), HasSubstr("\nQVDuplex=LongEdge\n"));
}

TEST_F(Pipeline, LeavesNoDiagnosticFilesOfAnUpdateJob) {
  const tests::DiagnosticsOn diagnostics;
  const std::string file = fileOf(kInput);
  EXPECT_EQ(tests::inChild([&] {
              job::LogFileMessageCheck(false);
              return run(jobOf("UpdatePPDOptions=1", file));
            }),
            "0|");
  const auto files = std::filesystem::directory_iterator(diagnostics.caches());
  EXPECT_EQ(std::distance(begin(files), end(files)), 1);  // the switch file
}

TEST_F(Pipeline, PrintsTheSameWithDiagnostics) {
  std::vector<std::string> files;
  const std::string output = printedWithDiagnostics(fileOf(kInput), files);
  EXPECT_EQ(output, printed(kInput, kOptions));
  EXPECT_THAT(output, EndsWith(std::string(kLastHeaderLine) + kWritten));
}

}  // namespace
}  // namespace kelm::filter
