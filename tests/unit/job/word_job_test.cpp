// Jobs from "Word" get the dialog's orientation options.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <string>

#include "job/print_job.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::job {
namespace {

using tests::TestJob;

constexpr char kApplication[] = "com.apple.print.JobInfo.PMApplicationName";
constexpr char kPreset[] = "com.apple.print.preset.Orientation..n.";

std::string valueOf(TestJob& job, const char* name) {
  std::string value;
  return getOptionValue(&*job, name, value) ? value : "absent";
}

TEST(IsApplicationMSWord, ForTheExactNameOnly) {
  const auto isWord = [](const char* application) {
    TestJob job(TestJob::Options{{kApplication, application}});
    return isApplicationMSWord(&*job);
  };
  EXPECT_TRUE(isWord("Word"));
  EXPECT_FALSE(isWord("word"));
  EXPECT_FALSE(isWord("Microsoft Word"));
  EXPECT_FALSE(isWord(""));
}

TEST(IsApplicationMSWord, IsFalseWithoutOptionsOrRecord) {
  EXPECT_FALSE(isApplicationMSWord(&*TestJob()));
  EXPECT_FALSE(isApplicationMSWord(nullptr));
}

TEST(UpdatePrintJobDataForMSWord, IsTrueWithoutARecord) {
  EXPECT_TRUE(UpdatePrintJobDataForMSWord(nullptr));
}

TEST(UpdatePrintJobDataForMSWord, LeavesOtherJobs) {
  TestJob job({{kApplication, "Pages"},
               {"orientation-requested", "4"},
               {"QVOrientation", "Portrait"},
               {kPreset, "1"}});
  EXPECT_TRUE(UpdatePrintJobDataForMSWord(&*job));
  EXPECT_EQ(valueOf(job, "QVOrientation"), "Portrait");
  EXPECT_EQ(valueOf(job, kPreset), "1");
}

TEST(UpdatePrintJobDataForMSWord, ReplacesTheOptionsOfALandscapeJob) {
  TestJob job({{kApplication, "Word"},
               {"orientation-requested", "4"},
               {"QVOrientation", "Portrait"},
               {kPreset, "1"}});
  EXPECT_TRUE(UpdatePrintJobDataForMSWord(&*job));
  EXPECT_EQ(valueOf(job, "QVOrientation"), "Landscape");
  EXPECT_EQ(valueOf(job, kPreset), "2");
  EXPECT_EQ(job->numOptions, 4);
}

TEST(UpdatePrintJobDataForMSWord, ReplacesTheOptionsOfAnyOtherWithPortrait) {
  for (const char* requested : {"3", "5", "", "44"}) {
    TestJob job({{kApplication, "Word"},
                 {"orientation-requested", requested},
                 {"QVOrientation", "Landscape"},
                 {kPreset, "2"}});
    EXPECT_TRUE(UpdatePrintJobDataForMSWord(&*job));
    EXPECT_EQ(valueOf(job, "QVOrientation"), "Portrait");
    EXPECT_EQ(valueOf(job, kPreset), "1");
  }
}

TEST(UpdatePrintJobDataForMSWord, DoesNotRaiseTheNumberOfOptions) {
  TestJob job({{kApplication, "Word"}, {kPreset, "2"}});
  EXPECT_TRUE(UpdatePrintJobDataForMSWord(&*job));
  EXPECT_EQ(job->numOptions, 2);
  EXPECT_EQ(valueOf(job, "QVOrientation"), "absent");  // it comes after the options that count
  EXPECT_STREQ(job->options[2].name, "QVOrientation");
  EXPECT_STREQ(job->options[2].value, "Portrait");
  EXPECT_EQ(valueOf(job, kPreset), "1");
  job->numOptions = 3;  // so that all are freed
}

// libcups would sort "QVOrientation" before "sides", and "sides" would no longer count.
TEST(UpdatePrintJobDataForMSWord, PushesNoOptionOut) {
  TestJob job({{kApplication, "Word"}, {kPreset, "2"}, {"sides", "one-sided"}});
  EXPECT_TRUE(UpdatePrintJobDataForMSWord(&*job));
  EXPECT_EQ(job->numOptions, 3);
  EXPECT_EQ(valueOf(job, "sides"), "one-sided");
  EXPECT_EQ(valueOf(job, "QVOrientation"), "absent");
  job->numOptions = 4;  // so that all are freed
}

}  // namespace
}  // namespace kelm::job
