// The job's record, and the lookup of its options.
// SPDX-License-Identifier: Apache-2.0
#include "job/print_job.hpp"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "job/ppd_calls.hpp"
#include "platform/fake/fake_platform.hpp"
#include "tests/support/memory_job.hpp"
#include "tests/support/temporary_directory.hpp"

namespace kelm::job {
namespace {

using tests::TestJob;

// A variable of the environment, set (or unset, without a value) while the object lives.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const char* value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    set(value);
  }
  ~ScopedVariable() { set(before_ ? before_->c_str() : nullptr); }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

 private:
  void set(const char* value) {
    if (value == nullptr) {
      unsetenv(name_);
    } else {
      setenv(name_, value, 1);
    }
  }
  const char* name_;
  std::optional<std::string> before_;
};

// A job that is started with these arguments: its record, its messages, and whether it started.
class StartedJob {
 public:
  explicit StartedJob(std::vector<std::string> arguments, const char* ppd = nullptr)
      : arguments_(std::move(arguments)) {
    const ScopedVariable noAppleLanguage("APPLE_LANGUAGE", nullptr);
    const ScopedVariable noLanguage("LANG", nullptr);
    const ScopedVariable ppdVariable("PPD", ppd);
    for (std::string& argument : arguments_) argv_.push_back(argument.data());
    const auto argc = static_cast<int>(argv_.size());
    argv_.push_back(nullptr);
    testing::internal::CaptureStderr();
    started_ = InitializePrintJobData(argc, argv_.data(), &record_);
    error_ = testing::internal::GetCapturedStderr();
  }
  ~StartedJob() {
    cupsFreeOptions(record_.numOptions, record_.options);
    if (record_.ppd != nullptr) r_ppdClose(record_.ppd);
  }
  StartedJob(const StartedJob&) = delete;
  StartedJob& operator=(const StartedJob&) = delete;

  static std::vector<std::string> usual(const std::string& options,
                                        const std::string& title = "title") {
    return {"kelmfilter", "12", "user", title, "1", options};
  }

  bool started() const { return started_; }
  const std::string& error() const { return error_; }
  char* argument(std::size_t index) const { return argv_[index]; }
  const PrintJobData* operator->() const { return &record_; }
  const PrintJobData& operator*() const { return record_; }

 private:
  platform::FakePlatform platform_;
  std::vector<std::string> arguments_;
  std::vector<char*> argv_;
  PrintJobData record_;
  bool started_ = false;
  std::string error_;
};

constexpr char kUsage[] = "Usage: filter-name job user title copies options [op filename]\n";

TEST(InitializePrintJobData, RefusesTooFewArgumentsWithTheUsage) {
  const StartedJob job({"filter-name", "1", "user", "title", "1"});
  EXPECT_FALSE(job.started());
  EXPECT_EQ(job.error(), kUsage);
}

TEST(InitializePrintJobData, RefusesTooManyArgumentsWithTheUsage) {
  const StartedJob job({"filter-name", "1", "user", "title", "1", "", "file", "more"});
  EXPECT_FALSE(job.started());
  EXPECT_EQ(job.error(), kUsage);
}

TEST(InitializePrintJobData, RefusesNoArgumentsAtAll) {
  const StartedJob job({"filter-name"});
  EXPECT_FALSE(job.started());
  EXPECT_EQ(job.error(), kUsage);
}

TEST(InitializePrintJobData, TakesSixOrSevenArguments) {
  std::vector<std::string> arguments = StartedJob::usual("");
  EXPECT_TRUE(StartedJob(arguments).started());
  arguments.emplace_back("file");
  const StartedJob job(arguments);
  EXPECT_TRUE(job.started());
  EXPECT_EQ(job.error(), "");
}

TEST(InitializePrintJobData, FillsTheRecordFromTheArguments) {
  const StartedJob job(StartedJob::usual("media=A4 QVMediaType=Plain collate"));
  EXPECT_EQ(job->jobId, 12);
  EXPECT_EQ(job->userName, job.argument(2));
  EXPECT_EQ(job->title, job.argument(3));
  EXPECT_EQ(job->numOptions, 3);
  std::string value;
  EXPECT_TRUE(getOptionValue(&*job, "QVMediaType", value));
  EXPECT_EQ(value, "Plain");
  EXPECT_FALSE(job->isPrintPDE);
  EXPECT_EQ(job->keepOutputFace, 0);
}

TEST(InitializePrintJobData, ReadsTheJobNumberLikeAtoi) {
  const StartedJob letters({"kelmfilter", "7abc", "user", "title", "1", ""});
  EXPECT_EQ(letters->jobId, 7);
  const StartedJob none({"kelmfilter", "abc", "user", "title", "1", ""});
  EXPECT_EQ(none->jobId, 0);
}

TEST(InitializePrintJobData, HasNoOptionsForAnEmptyText) {
  const StartedJob job(StartedJob::usual(""));
  EXPECT_EQ(job->numOptions, 0);
  std::string value = "left over";
  EXPECT_FALSE(getOptionValue(&*job, "media", value));
  EXPECT_EQ(value, "");
}

TEST(InitializePrintJobData, KeepsOneOfTwoOptionsOfTheSameName) {
  const StartedJob job(StartedJob::usual("media=A4 media=A3"));
  EXPECT_EQ(job->numOptions, 1);
  std::string value;
  getOptionValue(&*job, "media", value);
  EXPECT_EQ(value, "A3");
}

TEST(InitializePrintJobData, KnowsTheDialogByItsOptionWhateverItsValue) {
  EXPECT_TRUE(StartedJob(StartedJob::usual("PrintPDE=false"))->isPrintPDE);
  EXPECT_TRUE(StartedJob(StartedJob::usual("PrintPDE=\"\""))->isPrintPDE);
  EXPECT_TRUE(StartedJob(StartedJob::usual("PrintPDE"))->isPrintPDE);
  EXPECT_FALSE(StartedJob(StartedJob::usual("printpde=1"))->isPrintPDE);
}

TEST(InitializePrintJobData, LeavesNoPpdOfAnEarlierJobInTheRecord) {
  const platform::FakePlatform platform;
  const ScopedVariable noAppleLanguage("APPLE_LANGUAGE", nullptr);
  const ScopedVariable noLanguage("LANG", nullptr);
  const ScopedVariable noPpd("PPD", nullptr);
  ppd_file_t earlier{};
  PrintJobData record;
  record.ppd = &earlier;
  std::vector<std::string> arguments = StartedJob::usual("");
  std::vector<char*> argv;
  for (std::string& argument : arguments) argv.push_back(argument.data());
  EXPECT_TRUE(InitializePrintJobData(static_cast<int>(argv.size()), argv.data(), &record));
  EXPECT_EQ(record.ppd, nullptr);
}

TEST(InitializePrintJobData, GoesOnWithoutAPpd) {
  const StartedJob unset(StartedJob::usual(""));
  EXPECT_TRUE(unset.started());
  EXPECT_EQ(unset->ppd, nullptr);
  for (const char* path : {"/nonexistent.ppd", "/", "", KELM_PPDS_DIR "/../CMakeLists.txt"}) {
    const StartedJob job(StartedJob::usual(""), path);
    EXPECT_TRUE(job.started()) << path;
    EXPECT_EQ(job->ppd, nullptr) << path;
    EXPECT_EQ(job.error(), "") << path;
  }
}

std::string markedChoice(const PrintJobData& job, const char* option) {
  const ppd_choice_t* choice = r_ppdFindMarkedChoice(job.ppd, option);
  return choice == nullptr ? "none" : choice->choice;
}

// Opening a FIFO would wait for a program that writes to it.
TEST(InitializePrintJobData, DoesNotWaitForAPpdThatIsAFifo) {
  const tests::TemporaryDirectory directory;
  const std::string path = directory.path() / "queue.ppd";
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  alarm(20);
  const StartedJob job(StartedJob::usual(""), path.c_str());
  alarm(0);
  EXPECT_TRUE(job.started());
  EXPECT_EQ(job->ppd, nullptr);
}

TEST(InitializePrintJobData, MarksTheDefaultsAndThenTheJobsOptions) {
  const StartedJob job(StartedJob::usual("QVFormSelect1=Form3"), KELM_PPDS_DIR "/forms.ppd");
  ASSERT_NE(job->ppd, nullptr);
  EXPECT_EQ(markedChoice(*job, "QVFormSelect1"), "Form3");
  EXPECT_EQ(markedChoice(*job, "QVFormSelect2"), "Off");
  EXPECT_EQ(markedChoice(*job, "PageSize"), "A4");
}

std::string jobNameFor(const std::string& options, const std::string& title) {
  return StartedJob(StartedJob::usual(options, title))->jobNameHex;
}

TEST(JobName, IsTheTitleInHex) {
  EXPECT_EQ(jobNameFor("", "AB"), "4142");
  EXPECT_EQ(jobNameFor("", "\xC3\xA9"), "C3A9");
}

TEST(JobName, WritesATabOfTheTitleAsASpaceAndNine) { EXPECT_EQ(jobNameFor("", "A\tB"), "41 942"); }

TEST(JobName, OfAnEmptyTitleIsEmpty) { EXPECT_EQ(jobNameFor("", ""), ""); }

TEST(JobName, SwitchedOnWithoutATextIsEmpty) { EXPECT_EQ(jobNameFor("QVJobName=ON", "AB"), ""); }

TEST(JobName, SwitchedOnWithAnEmptyTextIsTheTitle) {
  EXPECT_EQ(jobNameFor("QVJobName=ON QVJobNameTextValueUTF8=\"\"", "AB"), "4142");
}

TEST(JobName, SwitchedOnWithATextIsTheTextAsItStands) {
  EXPECT_EQ(jobNameFor("QVJobName=ON QVJobNameTextValueUTF8=6A6F62", "AB"), "6A6F62");
  EXPECT_EQ(jobNameFor("QVJobName=ON QVJobNameTextValueUTF8=plain", "AB"), "plain");
}

TEST(JobName, NotSwitchedOnIsTheTitle) {
  EXPECT_EQ(jobNameFor("QVJobName=OFF QVJobNameTextValueUTF8=6A6F62", "AB"), "4142");
  EXPECT_EQ(jobNameFor("QVJobName=On QVJobNameTextValueUTF8=6A6F62", "AB"), "4142");
  EXPECT_EQ(jobNameFor("QVJobName QVJobNameTextValueUTF8=6A6F62", "AB"), "4142");
  EXPECT_EQ(jobNameFor("QVJobNameTextValueUTF8=6A6F62", "AB"), "4142");
}

TEST(JobName, IsCutAt2047BytesOfTheTitle) {
  EXPECT_EQ(jobNameFor("", std::string(2047, 'a')).size(), 4094U);
  EXPECT_EQ(jobNameFor("", std::string(3000, 'a')).size(), 4094U);
}

TEST(GetOptionValue, IsTheValueOfTheExactName) {
  TestJob job({{"media", "A4"}, {"QVMediaType", "Plain"}});
  std::string value;
  EXPECT_TRUE(getOptionValue(&*job, "QVMediaType", value));
  EXPECT_EQ(value, "Plain");
  for (const char* name : {"QVMediaTyp", "QVMediaTypes", "qvmediatype", ""}) {
    EXPECT_FALSE(getOptionValue(&*job, name, value)) << name;
  }
}

TEST(GetOptionValue, EmptiesItsResultFirst) {
  TestJob job;
  std::string value = "left over";
  EXPECT_FALSE(getOptionValue(&*job, "media", value));
  EXPECT_EQ(value, "");
}

TEST(GetOptionValue, KnowsEmptyFromAbsent) {
  TestJob job(TestJob::Options{{"media", ""}});
  std::string value = "left over";
  EXPECT_TRUE(getOptionValue(&*job, "media", value));
  EXPECT_EQ(value, "");
}

TEST(GetOptionValue, GivesValuesOfAnyLength) {
  const std::string longValue(100'000, 'v');
  TestJob job({{"media", longValue}, {"other", "x"}});
  std::string value;
  EXPECT_TRUE(getOptionValue(&*job, "media", value));
  EXPECT_EQ(value, longValue);
}

TEST(GetOptionValue, IsFalseWithoutARecord) {
  std::string value = "left over";
  EXPECT_FALSE(getOptionValue(nullptr, "media", value));
  EXPECT_EQ(value, "");
}

// A record with options that no parser would produce.
PrintJobData recordOver(std::vector<cups_option_t>& options) {
  PrintJobData record;
  record.numOptions = static_cast<std::int32_t>(options.size());
  record.options = options.data();
  return record;
}

TEST(GetOptionValue, TakesTheFirstOptionThatHasAValue) {
  std::string name = "media";
  std::string first = "first";
  std::string second = "second";
  std::vector<cups_option_t> options{
      {name.data(), nullptr}, {name.data(), first.data()}, {name.data(), second.data()}};
  const PrintJobData record = recordOver(options);
  std::string value;
  EXPECT_TRUE(getOptionValue(&record, "media", value));
  EXPECT_EQ(value, "first");
}

TEST(GetOptionValue, IsFalseWithFewerThanOneOption) {
  std::string name = "media";
  std::vector<cups_option_t> options{{name.data(), name.data()}};
  PrintJobData record = recordOver(options);
  std::string value;
  record.numOptions = 0;
  EXPECT_FALSE(getOptionValue(&record, "media", value));
  record.numOptions = -1;
  EXPECT_FALSE(getOptionValue(&record, "media", value));
}

TEST(GetOptionValue, DoesNotLookIntoThePpd) {
  TestJob job({}, KELM_PPDS_DIR "/forms.ppd");
  std::string value;
  EXPECT_FALSE(getOptionValue(&*job, "QVFormSelect1", value));
}

TEST(JobOptions, AreAllOptionsOrNone) {
  TestJob job({{"a", "1"}, {"b", "2"}});
  ASSERT_EQ(jobOptions(&*job).size(), 2U);
  EXPECT_STREQ(jobOptions(&*job)[1].value, "2");
  EXPECT_TRUE(jobOptions(nullptr).empty());
  const PrintJobData empty;
  EXPECT_TRUE(jobOptions(&empty).empty());
}

TEST(FindJobOption, IsTheFirstOfTheExactName) {
  TestJob job({{"a", "1"}, {"b", "2"}});
  ASSERT_NE(findJobOption(&*job, "b"), nullptr);
  EXPECT_STREQ(findJobOption(&*job, "b")->value, "2");
  EXPECT_EQ(findJobOption(&*job, "B"), nullptr);
  EXPECT_EQ(findJobOption(nullptr, "b"), nullptr);
}

TEST(OutputTrayDecidesFace, ForEveryTrayButAutoAndFaceDown) {
  const auto decides = [](const char* tray) {
    TestJob job(TestJob::Options{{"QVOutputTray", tray}});
    return outputTrayDecidesFace(&*job);
  };
  EXPECT_FALSE(decides("Auto"));
  EXPECT_FALSE(decides("FaceDown"));
  EXPECT_TRUE(decides("Tray2"));
  EXPECT_TRUE(decides("auto"));
  EXPECT_TRUE(decides(""));
  EXPECT_FALSE(outputTrayDecidesFace(&*TestJob()));
  EXPECT_FALSE(outputTrayDecidesFace(nullptr));
}

}  // namespace
}  // namespace kelm::job
