// The orientation of the job, as a number and in the orientation comment.
// SPDX-License-Identifier: Apache-2.0
#include "psrewrite/orientation.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "tests/support/memory_job.hpp"

namespace kelm::psrewrite {
namespace {

using tests::TestJob;

constexpr char kPreset[] = "com.apple.print.preset.Orientation..n.";
constexpr char kPortraitComment[] = "%BeginFeature: *QVOrientation Portrait\n";
constexpr char kLandscapeComment[] = "%BeginFeature: *QVOrientation Landscape\n";

struct OrientationRow {
  TestJob::Options options;
  int orientation;
};
void PrintTo(const OrientationRow& row, std::ostream* out) {
  for (const auto& [name, value] : row.options) *out << name << "=" << value << " ";
}

class PaperOrientation : public testing::TestWithParam<OrientationRow> {};

TEST_P(PaperOrientation, FollowsThePresetThenTheRequestThenTheOption) {
  TestJob job(GetParam().options);
  EXPECT_EQ(getPaperOrientation(&*job), GetParam().orientation);
}

INSTANTIATE_TEST_SUITE_P(
    Table, PaperOrientation,
    testing::Values(
        OrientationRow{{}, 0},  //
        OrientationRow{{{kPreset, "1"}}, 0}, OrientationRow{{{kPreset, "2"}}, 1},
        OrientationRow{{{kPreset, "3"}}, 0}, OrientationRow{{{"orientation-requested", "3"}}, 0},
        OrientationRow{{{"orientation-requested", "4"}}, 1},
        OrientationRow{{{"orientation-requested", "5"}}, 1},
        OrientationRow{{{"orientation-requested", "6"}}, 0},
        OrientationRow{{{"orientation-requested", "7"}}, 0},
        OrientationRow{{{"orientation-requested", "44"}}, 0},
        OrientationRow{{{"QVOrientation", "Portrait"}}, 0},
        OrientationRow{{{"QVOrientation", "Landscape"}}, 1},
        OrientationRow{{{"QVOrientation", "0"}}, -1}, OrientationRow{{{"QVOrientation", "1"}}, -1},
        OrientationRow{{{"QVOrientation", ""}}, -1},
        OrientationRow{{{"QVOrientation", "landscape"}}, -1},
        OrientationRow{{{kPreset, "1"}, {"orientation-requested", "4"}}, 0},
        OrientationRow{
            {{kPreset, "2"}, {"orientation-requested", "3"}, {"QVOrientation", "Portrait"}}, 1},
        OrientationRow{{{kPreset, "0"}, {"orientation-requested", "4"}}, 1},
        OrientationRow{{{kPreset, "0"}, {"QVOrientation", "Landscape"}}, 1},
        OrientationRow{{{"orientation-requested", "6"}, {"QVOrientation", "Landscape"}}, 0},
        OrientationRow{{{"orientation-requested", "0"}, {"QVOrientation", "Landscape"}}, 1},
        OrientationRow{{{"orientation-requested", "0"}, {"QVOrientation", "other"}}, -1}));

TEST(GetPaperOrientation, OfNoRecordIsPortrait) { EXPECT_EQ(getPaperOrientation(nullptr), 0); }

// The line after replaceOrientation, or "unchanged" if the result says so and the line is the same.
std::string turned(const std::string& text, const TestJob::Options& options) {
  TestJob job(options);
  LineBuffer line;
  line.overwrite(text);
  const std::int32_t length = replaceOrientation(line, &*job);
  if (length < 0) return line.text() == text && length == -1 ? "unchanged" : "broken";
  return static_cast<std::size_t>(length) == std::string(line.text()).size() ? line.text()
                                                                             : "broken";
}

TEST(ReplaceOrientation, TurnsTheCommentByNameAndByDigit) {
  EXPECT_EQ(turned(kPortraitComment, {{"QVOrientation", "Landscape"}}), kLandscapeComment);
  EXPECT_EQ(turned(kPortraitComment, {{"QVOrientation", "1"}}), kLandscapeComment);
  EXPECT_EQ(turned(kLandscapeComment, {{"QVOrientation", "Portrait"}}), kPortraitComment);
  EXPECT_EQ(turned(kLandscapeComment, {{"QVOrientation", "0"}}), kPortraitComment);
}

TEST(ReplaceOrientation, LeavesACommentThatIsRightAlready) {
  EXPECT_EQ(turned(kPortraitComment, {{"QVOrientation", "Portrait"}}), "unchanged");
  EXPECT_EQ(turned(kLandscapeComment, {{"QVOrientation", "1"}}), "unchanged");
}

TEST(ReplaceOrientation, LeavesEverythingWithoutAKnownChoice) {
  EXPECT_EQ(turned(kPortraitComment, {}), "unchanged");
  EXPECT_EQ(turned(kPortraitComment, {{"QVOrientation", "landscape"}}), "unchanged");
  EXPECT_EQ(turned(kPortraitComment, {{"QVOrientation", "2"}}), "unchanged");
  EXPECT_EQ(turned(kPortraitComment, {{"QVOrientation", ""}}), "unchanged");
}

TEST(ReplaceOrientation, LeavesOtherLines) {
  const TestJob::Options landscape{{"QVOrientation", "Landscape"}};
  EXPECT_EQ(turned("%BeginFeature: *QVGCRed Portrait\n", landscape), "unchanged");
  EXPECT_EQ(turned("BeginFeature: *QVOrientation Portrait\n", landscape), "unchanged");
  EXPECT_EQ(turned("%BeginFeature:  *QVOrientation Portrait\n", landscape), "unchanged");
}

TEST(ReplaceOrientation, DropsWhatStandsAroundTheComment) {
  EXPECT_EQ(turned("x %BeginFeature: *QVOrientation PortraitOrSo and more\r\n",
                   {{"QVOrientation", "Landscape"}}),
            kLandscapeComment);
}

TEST(ReplaceOrientation, LeavesEverythingWithoutARecord) {
  LineBuffer line;
  line.overwrite(kPortraitComment);
  EXPECT_EQ(replaceOrientation(line, nullptr), -1);
  EXPECT_STREQ(line.text(), kPortraitComment);
}

TEST(ReplaceCustomOrientation, TurnsTheCommentToTheShape) {
  LineBuffer line;
  line.overwrite(kLandscapeComment);
  EXPECT_EQ(replaceCustomOrientation(line, true), 39);
  EXPECT_STREQ(line.text(), kPortraitComment);
  EXPECT_EQ(replaceCustomOrientation(line, false), 40);
  EXPECT_STREQ(line.text(), kLandscapeComment);
}

TEST(ReplaceCustomOrientation, LeavesACommentOfTheShape) {
  LineBuffer line;
  line.overwrite(kPortraitComment);
  EXPECT_EQ(replaceCustomOrientation(line, true), -1);
  EXPECT_STREQ(line.text(), kPortraitComment);
}

}  // namespace
}  // namespace kelm::psrewrite
