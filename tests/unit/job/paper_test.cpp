// The printer's papers, and the size of the paper that a job is printed on.
// SPDX-License-Identifier: Apache-2.0
#include "job/paper.hpp"

#include <gmock/gmock.h>

#include <iterator>
#include <ostream>
#include <string>

#include "platform/fake/fake_platform.hpp"
#include "tests/support/expected_papers.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::job {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::TestJob;

struct Size {
  std::string width;
  std::string height;
  bool operator==(const Size&) const = default;
  friend std::ostream& operator<<(std::ostream& out, const Size& size) {
    return out << "[" << size.width << "] by [" << size.height << "]";
  }
};

Size sheetOf(const TestJob::Options& options, Size before = {}) {
  TestJob job(options);
  NotPDE_PageSize(&*job, before.width, before.height);
  return before;
}

Size sheetOfMedia(const std::string& media, Size before = {}) {
  return sheetOf({{"media", media}}, std::move(before));
}

class Target : public testing::Test {
 protected:
  Size of(const TestJob::Options& options, std::size_t widthSize = 4096,
          std::size_t heightSize = 4096) {
    TestJob job(options);
    Size size{"before", "before"};
    EXPECT_EQ(getQVTargetPaperSize(&*job, &size.width, widthSize, &size.height, heightSize), 0);
    return size;
  }
  const std::vector<std::string>& log() const { return platform_.systemLog.messages; }

  platform::FakePlatform platform_;
};

constexpr char kMapped[] = "com.apple.print.PageToPaperMappingMediaName";

class EveryPaper : public testing::TestWithParam<tests::ExpectedPaper> {};

TEST_P(EveryPaper, HasItsNameInTheHeaderAndItsSize) {
  const Paper* paper = findPaper(GetParam().choice);
  ASSERT_NE(paper, nullptr);
  EXPECT_STREQ(paper->pjlName, GetParam().pjlName);
  EXPECT_STREQ(paper->width, GetParam().width);
  EXPECT_STREQ(paper->height, GetParam().height);
}

TEST_P(EveryPaper, IsASheetAndATarget) {
  platform::FakePlatform platform;
  const Size expected{GetParam().width, GetParam().height};
  EXPECT_EQ(sheetOfMedia(GetParam().choice), expected);
  TestJob job(TestJob::Options{{"QVTargetPaperSize", GetParam().choice}});
  Size size;
  EXPECT_EQ(getQVTargetPaperSize(&*job, &size.width, 4096, &size.height, 4096), 0);
  EXPECT_EQ(size, expected);
}

TEST(Papers, AreNoOthers) {
  EXPECT_EQ(std::size(kPapers), std::size(tests::kExpectedPapers))
      << "each paper needs a row in job/paper.hpp and one in tests/support/expected_papers.hpp";
}

INSTANTIATE_TEST_SUITE_P(Table, EveryPaper, testing::ValuesIn(tests::kExpectedPapers),
                         [](const auto& row) { return std::string(row.param.choice); });

TEST(FindPaper, KnowsExactNamesOnly) {
  EXPECT_EQ(findPaper("a4"), nullptr);
  EXPECT_EQ(findPaper("tabloid"), nullptr);
  EXPECT_EQ(findPaper("A4 "), nullptr);
  EXPECT_EQ(findPaper("A"), nullptr);
  EXPECT_EQ(findPaper(""), nullptr);
}

TEST(NotPDEPageSize, IsA4WithoutMedia) {
  EXPECT_EQ(sheetOf({}), (Size{"21000", "29700"}));
  EXPECT_EQ(sheetOf({{"PageSize", "A3"}}), (Size{"21000", "29700"}));
}

TEST(NotPDEPageSize, OfCustom595x842IsA4) {
  EXPECT_EQ(sheetOfMedia("Custom.595x842"), (Size{"21000", "29700"}));
}

// CUPS finds options this way, and the header finds the paper's name this way.
TEST(NotPDEPageSize, FindsMediaInAnyLetterCase) {
  EXPECT_EQ(sheetOf({{"MEDIA", "Kaku3"}}), (Size{"21600", "27700"}));
}

TEST(NotPDEPageSize, OfTabloidInLowerCaseIsTabloid) {
  EXPECT_EQ(sheetOfMedia("tabloid"), (Size{"27900", "43200"}));
  EXPECT_EQ(sheetOfMedia("TABLOID"), (Size{"", ""}));
  EXPECT_EQ(sheetOfMedia("letter"), (Size{"", ""}));
}

TEST(NotPDEPageSize, LeavesBothForAnUnknownName) {
  EXPECT_EQ(sheetOfMedia("Poster", {"w", "h"}), (Size{"w", "h"}));
  EXPECT_EQ(sheetOfMedia("", {"w", "h"}), (Size{"w", "h"}));
}

TEST(NotPDEPageSize, RoundsPointsToWholeMillimetres) {
  EXPECT_EQ(sheetOfMedia("Custom.1x2"), (Size{"0", "100"}));           // 0.353, 0.706 mm
  EXPECT_EQ(sheetOfMedia("Custom.72x1000"), (Size{"2500", "35300"}));  // 25.4, 352.8 mm
  EXPECT_EQ(sheetOfMedia("Custom.595.5x841.89"), (Size{"21000", "29700"}));
}

TEST(NotPDEPageSize, ReadsNumbersUpToAnythingElse) {
  EXPECT_EQ(sheetOfMedia("Custom.595ptx842mm"), (Size{"21000", "29700"}));
  EXPECT_EQ(sheetOfMedia("Custom.widexhigh"), (Size{"0", "0"}));
}

TEST(NotPDEPageSize, LeavesWhatIsMissing) {
  EXPECT_EQ(sheetOfMedia("Custom"), (Size{"", ""}));
  EXPECT_EQ(sheetOfMedia("Custom."), (Size{"", ""}));
  EXPECT_EQ(sheetOfMedia("Custom.595"), (Size{"21000", ""}));
  EXPECT_EQ(sheetOfMedia("Custom.595x"), (Size{"21000", ""}));
}

TEST(NotPDEPageSize, TakesAWidthThatIsMissingForTheHeight) {
  EXPECT_EQ(sheetOfMedia("Custom.x842"), (Size{"29700", ""}));
}

TEST(NotPDEPageSize, ReadsAtMost254Bytes) {
  // "Custom.595x" is 11 bytes long: of the number after it, 243 bytes count.
  const std::string zeros(240, '0');
  EXPECT_EQ(sheetOfMedia("Custom.595x" + zeros + "842"), (Size{"21000", "29700"}));
  EXPECT_EQ(sheetOfMedia("Custom.595x0" + zeros + "842"), (Size{"21000", "3000"}));  // 84
}

TEST(NotPDEPageSize, TakesTheWordAnywhere) {
  EXPECT_EQ(sheetOfMedia("MyCustom.595x842"), (Size{"21000", "29700"}));
}

struct Millimetres {
  float width = -7;
  float height = -7;
};

Millimetres customOf(const char* text) {
  Millimetres size;
  EXPECT_EQ(getCustomPaperSize(text, &size.width, &size.height), 0);
  return size;
}

void expectCustom(const char* text, float width, float height) {
  const Millimetres size = customOf(text);
  EXPECT_EQ(size.width, width) << text;
  EXPECT_EQ(size.height, height) << text;
}

TEST(GetCustomPaperSize, GivesWholeMillimetres) {
  expectCustom("Custom.595x842", 210, 297);
  expectCustom("Custom.595.4x841.6", 210, 297);
}

TEST(GetCustomPaperSize, IgnoresUnits) { expectCustom("Custom.595mmx842in", 210, 297); }

TEST(GetCustomPaperSize, LeavesBothWithoutFullStopOrX) {
  expectCustom("Custom", -7, -7);
  expectCustom("Custom.595", -7, -7);
  expectCustom("595x842", -7, -7);
  expectCustom("", -7, -7);
}

TEST(GetCustomPaperSize, LeavesTheHeightWithNothingAfterTheX) {
  expectCustom("Custom.100x", 35, -7);
}

TEST(GetCustomPaperSize, LeavesTheWidthWhenTheXComesFirst) {
  expectCustom("x842.595", -7, 297);  // 842.595 points
}

TEST(GetCustomPaperSize, TakesTextsWithoutNumbersAsZero) { expectCustom("Custom.xy", 0, 0); }

TEST(GetCustomPaperSize, ReadsAtMost255BytesOfTheWidth) {
  const std::string zeros(252, '0');
  expectCustom(("Custom." + zeros + "595x842").c_str(), 210, 297);
  expectCustom(("Custom.0" + zeros + "595x842").c_str(), 21, 297);  // 59 points
}

TEST(GetCustomPaperSize, IsMinusOneWithoutAnArgument) {
  float number = 3;
  EXPECT_EQ(getCustomPaperSize(nullptr, &number, &number), -1);
  EXPECT_EQ(getCustomPaperSize("Custom.1x1", nullptr, &number), -1);
  EXPECT_EQ(getCustomPaperSize("Custom.1x1", &number, nullptr), -1);
  EXPECT_EQ(number, 3);
}

TEST(HasCustomPaperSize, NeedsAFullStopAnXAndSomethingAfterIt) {
  EXPECT_TRUE(hasCustomPaperSize("Custom.595x842"));
  EXPECT_TRUE(hasCustomPaperSize("Custom.xa"));
  EXPECT_FALSE(hasCustomPaperSize("Custom595x842"));
  EXPECT_FALSE(hasCustomPaperSize("Custom.595"));
  EXPECT_FALSE(hasCustomPaperSize("Custom.595x"));
}

TEST(HundredthsText, IsWholeDecimalText) {
  EXPECT_EQ(hundredthsText(0), "0");
  EXPECT_EQ(hundredthsText(35), "3500");
  EXPECT_EQ(hundredthsText(297), "29700");
  EXPECT_EQ(hundredthsText(-3), "-300");
}

TEST(HundredthsText, HasRoomForTheLargestNumber) { EXPECT_EQ(hundredthsText(3e36F).size(), 39U); }

TEST_F(Target, IsTheDialogsPaperFirst) {
  EXPECT_EQ(of({{"QVTargetPaperSize", "B5"}, {kMapped, "A5"}, {"media", "A3"}}),
            (Size{"18200", "25700"}));
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(Target, OfAnUnknownPaperIsEmpty) {
  EXPECT_EQ(of({{"QVTargetPaperSize", "Custom"}, {kMapped, "A5"}}), (Size{"", ""}));
  EXPECT_EQ(of({{"QVTargetPaperSize", "Custom.595x842"}}), (Size{"", ""}));
  EXPECT_EQ(of({{"QVTargetPaperSize", ""}, {kMapped, "A5"}}), (Size{"", ""}));
}

TEST_F(Target, DoesNotKnowTabloidInLowerCase) {
  EXPECT_EQ(of({{"QVTargetPaperSize", "tabloid"}}), (Size{"", ""}));
  EXPECT_EQ(of({{kMapped, "tabloid"}}), (Size{"", ""}));
}

TEST_F(Target, SameAsOriginalFollowsTheMappedName) {
  EXPECT_EQ(of({{"QVTargetPaperSize", "SameAsOriginal"}, {kMapped, "A5"}}),
            (Size{"14800", "21000"}));
  EXPECT_EQ(of({{"QVTargetPaperSize", "xSameAsOriginalx"}, {kMapped, "A5"}}),
            (Size{"14800", "21000"}));
}

TEST_F(Target, OfACustomMappedName) {
  EXPECT_EQ(of({{kMapped, "Custom.595x842"}}), (Size{"21000", "29700"}));
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(Target, OfACustomMappedNameWithoutHeightIsZeroHigh) {
  EXPECT_EQ(of({{kMapped, "Custom.100x"}}), (Size{"3500", "0"}));
}

TEST_F(Target, OfACustomMappedNameWithoutSizesIsZero) {
  EXPECT_EQ(of({{kMapped, "Custom"}}), (Size{"0", "0"}));
  EXPECT_EQ(of({{kMapped, "Custom.595"}}), (Size{"0", "0"}));
  EXPECT_EQ(of({{kMapped, "Custom595x842"}}), (Size{"0", "0"}));
}

TEST_F(Target, OfAnUnknownMappedNameIsEmpty) {
  EXPECT_EQ(of({{kMapped, "Poster"}, {"media", "A3"}}), (Size{"", ""}));
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(Target, FollowsMediaLastAndTellsTheSystemLog) {
  EXPECT_EQ(of({{"media", "tabloid"}}), (Size{"27900", "43200"}));
  EXPECT_THAT(log(), ElementsAre("[DEBUG]NotPDE_PageSize width=27900, height=43200"));
}

TEST_F(Target, TellsTheSystemLogOfEmptySizes) {
  EXPECT_EQ(of({{"QVTargetPaperSize", "SameAsOriginal"}, {"media", "Poster"}}), (Size{"", ""}));
  EXPECT_THAT(log(), ElementsAre("[DEBUG]NotPDE_PageSize width=, height="));
}

TEST_F(Target, CopiesAPaperOnlyWhereBothSizesExceedTheirTextsByTwo) {
  EXPECT_EQ(of({{"QVTargetPaperSize", "A4"}}, 7, 7), (Size{"21000", "29700"}));
  EXPECT_EQ(of({{"QVTargetPaperSize", "A4"}}, 6, 7), (Size{"", ""}));
  EXPECT_EQ(of({{"QVTargetPaperSize", "A4"}}, 7, 6), (Size{"", ""}));
  EXPECT_EQ(of({{"QVTargetPaperSize", "Naga4"}}, 6, 7), (Size{"9000", "20500"}));
  EXPECT_EQ(of({{kMapped, "A4"}}, 6, 7), (Size{"", ""}));
}

TEST_F(Target, IsMinusOneWithoutAnArgument) {
  TestJob job;
  std::string text = "as it was";
  EXPECT_EQ(getQVTargetPaperSize(nullptr, &text, 4096, &text, 4096), -1);
  EXPECT_EQ(getQVTargetPaperSize(&*job, nullptr, 4096, &text, 4096), -1);
  EXPECT_EQ(getQVTargetPaperSize(&*job, &text, 4096, nullptr, 4096), -1);
  EXPECT_EQ(text, "as it was");
  EXPECT_THAT(log(), IsEmpty());
}

}  // namespace
}  // namespace kelm::job
