// What is decided about a job before its first byte is written.
// SPDX-License-Identifier: Apache-2.0
#include "job/job_setup.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "job/custom_paper.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::job {
namespace {

using tests::TestJob;

struct DecidedPaper {
  bool custom;
  std::int32_t width;
  std::int32_t height;

  bool operator==(const DecidedPaper&) const = default;
  friend std::ostream& operator<<(std::ostream& out, const DecidedPaper& paper) {
    return out << (paper.custom ? "custom " : "standard ") << paper.width << " by " << paper.height;
  }
};

class CustomPaper : public testing::Test {
 protected:
  ~CustomPaper() override { forget(); }

  static void forget() {
    job::customSizeFlg = false;
    job::widthLength = 0;
    job::heighLength = 0;
  }
  static DecidedPaper decidedFor(const TestJob::Options& options) {
    TestJob job(options);
    decideCustomPaper(*job);
    return {job::customSizeFlg, job::widthLength, job::heighLength};
  }
  static DecidedPaper of(const std::string& media) {
    forget();
    return decidedFor({{"media", media}});
  }
  // A job with `count` options, one of which is a custom medium.
  static DecidedPaper among(int count) {
    forget();
    TestJob::Options options{{"media", "Custom.595x842"}};
    for (int i = 1; i < count; ++i) options.emplace_back("option" + std::to_string(i), "x");
    return decidedFor(options);
  }
};

TEST_F(CustomPaper, OfA4InPointsIsUpright) {
  EXPECT_EQ(of("Custom.595x842"), (DecidedPaper{true, 21000, 29700}));
}

TEST_F(CustomPaper, OfA4OnItsSideIsWide) {
  EXPECT_EQ(of("Custom.842x595"), (DecidedPaper{true, 29700, 21000}));
}

TEST_F(CustomPaper, WithoutFullStopOrXHasNoSize) {
  EXPECT_EQ(of("Custom"), (DecidedPaper{true, 0, 0}));
  EXPECT_EQ(of("Custom.595"), (DecidedPaper{true, 0, 0}));
  EXPECT_EQ(of("Custom595x842"), (DecidedPaper{true, 0, 0}));
  EXPECT_EQ(of("xCustom.595"), (DecidedPaper{true, 0, 0}));  // the x comes before the full stop
}

TEST_F(CustomPaper, IsAnyMediumThatContainsTheWord) {
  EXPECT_EQ(of("MyCustom.595x842"), (DecidedPaper{true, 21000, 29700}));
  EXPECT_EQ(of("custom.595x842"), (DecidedPaper{false, 0, 0}));
  EXPECT_EQ(of("A4"), (DecidedPaper{false, 0, 0}));
  EXPECT_EQ(of(""), (DecidedPaper{false, 0, 0}));
}

TEST_F(CustomPaper, IsNamedByTheOptionMediaOnly) {
  EXPECT_EQ(decidedFor({{"PageSize", "Custom.595x842"}}), (DecidedPaper{false, 0, 0}));
  EXPECT_EQ(decidedFor({{"Media", "Custom.595x842"}}), (DecidedPaper{false, 0, 0}));
  EXPECT_EQ(decidedFor({}), (DecidedPaper{false, 0, 0}));
}

TEST_F(CustomPaper, IsMeasuredInWholePoints) {
  EXPECT_EQ(of("Custom.595.9x842.9"), (DecidedPaper{true, 21000, 29700}));
  EXPECT_EQ(of("Custom.595mmx842in"), (DecidedPaper{true, 21000, 29700}));
  EXPECT_EQ(of("Custom.ax"), (DecidedPaper{true, 0, 0}));
}

TEST_F(CustomPaper, IsRoundedToWholeMillimetres) {
  EXPECT_EQ(of("Custom.1x2"), (DecidedPaper{true, 0, 100}));  // 0.353 and 0.706 mm
  EXPECT_EQ(of("Custom.72x144"), (DecidedPaper{true, 2500, 5100}));
  EXPECT_EQ(of("Custom.-1x-72"), (DecidedPaper{true, 0, -2400}));  // truncated towards zero
}

TEST_F(CustomPaper, IsCutTo32Bits) {
  // 2147483647 points are 757584509 mm, or 75758450900 hundredths; minus 18 times 2^32.
  EXPECT_EQ(of("Custom.2147483647x1"), (DecidedPaper{true, -1550960428, 0}));
}

TEST_F(CustomPaper, OfAValueOf4095BytesIsRead) {
  const std::string zeros(4095 - std::string("Custom.595x842").size(), '0');
  EXPECT_EQ(of("Custom.595x" + zeros + "842"), (DecidedPaper{true, 21000, 29700}));
}

TEST_F(CustomPaper, OfAValueOf4096BytesHasNoSize) {
  const std::string zeros(4096 - std::string("Custom.595x842").size(), '0');
  EXPECT_EQ(of("Custom.595x" + zeros + "842"), (DecidedPaper{true, 0, 0}));
}

TEST_F(CustomPaper, IsSeenAmong99Options) {
  EXPECT_EQ(among(1), (DecidedPaper{true, 21000, 29700}));
  EXPECT_EQ(among(99), (DecidedPaper{true, 21000, 29700}));
}

TEST_F(CustomPaper, IsNotSeenAmong100Options) {
  EXPECT_EQ(among(100), (DecidedPaper{false, 0, 0}));
  EXPECT_EQ(among(150), (DecidedPaper{false, 0, 0}));
}

// The stage of standard options adds every own option, so such a job always has many.
TEST_F(CustomPaper, OfSettledOptionsIsSeenAmongAnyNumber) {
  TestJob::Options options{{"media", "Custom.595x842"}};
  for (int i = 1; i < 150; ++i) options.emplace_back("option" + std::to_string(i), "x");
  TestJob job(options);
  job->optionsSettled = true;
  decideCustomPaper(*job);
  EXPECT_EQ((DecidedPaper{job::customSizeFlg, job::widthLength, job::heighLength}),
            (DecidedPaper{true, 21000, 29700}));
}

TEST_F(CustomPaper, FlagIsTakenBackAndSizesStay) {
  decidedFor({{"media", "Custom.595x842"}});
  EXPECT_EQ(decidedFor({{"media", "Custom"}}), (DecidedPaper{true, 21000, 29700}));
  EXPECT_EQ(decidedFor({{"media", "A4"}}), (DecidedPaper{false, 21000, 29700}));
}

TEST_F(CustomPaper, IsTheLastOfSeveral) {
  std::string media = "media";
  std::string first = "Custom.595x842";
  std::string second = "Custom.72x144";
  std::string third = "Custom";
  std::vector<cups_option_t> options{
      {media.data(), first.data()}, {media.data(), second.data()}, {media.data(), third.data()}};
  job::PrintJobData job;
  job.numOptions = 3;
  job.options = options.data();
  decideCustomPaper(job);
  EXPECT_EQ((DecidedPaper{job::customSizeFlg, job::widthLength, job::heighLength}),
            (DecidedPaper{true, 2500, 5100}));
}

std::int32_t keepsFace(const TestJob::Options& options) {
  TestJob job(options);
  job->keepOutputFace = 7;
  decideOutputFace(*job);
  return job->keepOutputFace;
}

TEST(OutputFace, IsKeptForATrayThatDecides) {
  EXPECT_EQ(keepsFace({{"QVOutputTray", "Tray2"}}), 1);
  EXPECT_EQ(keepsFace({{"QVOutputTray", ""}}), 1);
  EXPECT_EQ(keepsFace({{"QVOutputTray", "AUTO"}}), 1);
}

TEST(OutputFace, IsNotKeptForAutoFaceDownOrNoTray) {
  EXPECT_EQ(keepsFace({{"QVOutputTray", "Auto"}}), 0);
  EXPECT_EQ(keepsFace({{"QVOutputTray", "FaceDown"}}), 0);
  EXPECT_EQ(keepsFace({{"qvoutputtray", "Tray2"}}), 0);
  EXPECT_EQ(keepsFace({}), 0);
}

}  // namespace
}  // namespace kelm::job
