// The writers that write every line of the header.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/writers.hpp"

#include <gtest/gtest.h>

#include <cctype>
#include <clocale>
#include <cstdlib>
#include <string>

#include "job/custom_paper.hpp"
#include "tests/support/memory_job.hpp"
#include "tests/support/temporary_directory.hpp"

namespace kelm::pjl {
namespace {

using tests::MemoryOutput;
using tests::TestJob;
using Options = TestJob::Options;

constexpr ValueRow kColours[] = {{"Red", "R"}, {"Green", "G"}, {"Blue", "B"}};
constexpr ValueRow kWithNullRows[] = {{nullptr, nullptr}, {"Red", "R"}, {nullptr, nullptr}};

std::string copied(const Options& options, const char* defaultText) {
  TestJob job(options);
  MemoryOutput output;
  Output_CopyValue(output.stream(), *job, "QVText", "TEXT", defaultText);
  return output.text();
}

std::string inUpperCase(const Options& options, const char* defaultText) {
  TestJob job(options);
  MemoryOutput output;
  Output_CopyValueWithUpperCase(output.stream(), *job, "QVText", "TEXT", defaultText);
  return output.text();
}

std::string mapped(const Options& options, std::span<const ValueRow> rows, std::size_t defaultIndex,
                   const char* pjlName = "COLOUR") {
  TestJob job(options);
  MemoryOutput output;
  Output_KeyValue(output.stream(), *job, "QVColour", pjlName, rows, defaultIndex);
  return output.text();
}

std::string mappedText(const char* choice, std::span<const ValueRow> rows, bool hexFlag) {
  TestJob job;
  MemoryOutput output;
  Output_ValueWithArray(output.stream(), *job, "COLOUR", choice, rows, hexFlag);
  return output.text();
}

TEST(Value, IsWrittenAfterItsNameWithoutQuotesOrSpaces) {
  TestJob job;
  MemoryOutput output;
  Output_Value(output.stream(), *job, "NAME", "a b");
  EXPECT_EQ(output.text(), "@PJL SET NAME=a b\n");
}

TEST(Value, MayBeEmpty) {
  TestJob job;
  MemoryOutput output;
  Output_Value(output.stream(), *job, "NAME", "");
  EXPECT_EQ(output.text(), "@PJL SET NAME=\n");
}

TEST(Value, IsNoFormat) {
  TestJob job;
  MemoryOutput output;
  Output_Value(output.stream(), *job, "NAME", "100%s %n");
  EXPECT_EQ(output.text(), "@PJL SET NAME=100%s %n\n");
}

TEST(CopyValue, IsTheOptionsTextAsItIs) {
  EXPECT_EQ(copied({{"QVText", "A \"b\" = ü %d"}}, "default"), "@PJL SET TEXT=A \"b\" = ü %d\n");
}

TEST(CopyValue, IsTheDefaultWithoutTheOption) {
  EXPECT_EQ(copied({{"QVTex", "a"}, {"QVTextt", "b"}}, "default"), "@PJL SET TEXT=default\n");
}

TEST(CopyValue, IsEmptyForAnEmptyOption) {
  EXPECT_EQ(copied({{"QVText", ""}}, "default"), "@PJL SET TEXT=\n");
}

TEST(CopyValue, TakesTheOptionsNameLetterForLetter) {
  EXPECT_EQ(copied({{"qvtext", "a"}}, "default"), "@PJL SET TEXT=default\n");
}

TEST(CopyValue, HasNoBoundForTheText) {
  const std::string text(10000, 'x');
  EXPECT_EQ(copied({{"QVText", text}}, ""), "@PJL SET TEXT=" + text + "\n");
}

TEST(CopyValueWithUpperCase, RaisesTheOptionsText) {
  EXPECT_EQ(inUpperCase({{"QVText", "box 1a_Z"}}, ""), "@PJL SET TEXT=BOX 1A_Z\n");
}

TEST(CopyValueWithUpperCase, LeavesTheDefaultAsItIs) {
  EXPECT_EQ(inUpperCase({}, "box"), "@PJL SET TEXT=box\n");
}

TEST(CopyValueWithUpperCase, GoesByteByByte) {
  EXPECT_EQ(inUpperCase({{"QVText", "aü"}}, ""), "@PJL SET TEXT=Aü\n");
}

// A locale in which 0xFC is a lower-case letter, made for the test.
TEST(CopyValueWithUpperCase, DoesNotFollowTheJobsLanguage) {
  const tests::TemporaryDirectory directory;
  const std::string locale = directory.path() / "latin";
  ASSERT_EQ(std::system(("localedef -i de_DE -f ISO-8859-1 " + locale + " >/dev/null").c_str()), 0);
  setenv("LOCPATH", directory.path().c_str(), 1);
  ASSERT_NE(std::setlocale(LC_ALL, "latin"), nullptr);
  EXPECT_NE(std::toupper(0xFC), 0xFC);
  EXPECT_EQ(inUpperCase({{"QVText", "istanbul\xFC"}}, ""), "@PJL SET TEXT=ISTANBUL\xFC\n");
  std::setlocale(LC_ALL, "C");
  unsetenv("LOCPATH");
}

TEST(KeyValue, IsTheValueOfTheChoice) {
  EXPECT_EQ(mapped({{"QVColour", "Green"}}, kColours, 0), "@PJL SET COLOUR=G\n");
}

TEST(KeyValue, IsEmptyForATextThatMatchesNoKeyAndNotTheDefault) {
  EXPECT_EQ(mapped({{"QVColour", "Pink"}}, kColours, 0), "@PJL SET COLOUR=\n");
}

TEST(KeyValue, IsEmptyForAnEmptyText) {
  EXPECT_EQ(mapped({{"QVColour", ""}}, kColours, 0), "@PJL SET COLOUR=\n");
}

TEST(KeyValue, ComparesChoicesLetterForLetter) {
  EXPECT_EQ(mapped({{"QVColour", "red"}}, kColours, 1), "@PJL SET COLOUR=\n");
  EXPECT_EQ(mapped({{"QVColour", "Red "}}, kColours, 1), "@PJL SET COLOUR=\n");
  EXPECT_EQ(mapped({{"QVColour", "Re"}}, kColours, 1), "@PJL SET COLOUR=\n");
}

TEST(KeyValue, IsTheDefaultWithoutTheOption) {
  EXPECT_EQ(mapped({}, kColours, 2), "@PJL SET COLOUR=B\n");
}

TEST(KeyValue, IsEmptyWithoutTheOptionWhenTheDefaultIsAtTheEndOfTheTableOrBeyond) {
  EXPECT_EQ(mapped({}, kColours, 3), "@PJL SET COLOUR=\n");
  EXPECT_EQ(mapped({}, kColours, 4), "@PJL SET COLOUR=\n");
}

TEST(KeyValue, IsEmptyForATableWithoutRows) {
  EXPECT_EQ(mapped({{"QVColour", "Red"}}, {}, 0), "@PJL SET COLOUR=\n");
  EXPECT_EQ(mapped({}, {}, 0), "@PJL SET COLOUR=\n");
}

TEST(KeyValue, SkipsRowsWithoutAChoice) {
  EXPECT_EQ(mapped({{"QVColour", "Red"}}, kWithNullRows, 1), "@PJL SET COLOUR=R\n");
  EXPECT_EQ(mapped({{"QVColour", "Blue"}}, kWithNullRows, 1), "@PJL SET COLOUR=\n");
}

TEST(KeyValue, IsEmptyWhenTheDefaultRowHasNoValue) {
  EXPECT_EQ(mapped({}, kWithNullRows, 0), "@PJL SET COLOUR=\n");
}

TEST(KeyValue, OfAnAbsentPageSizeFollowsTheJobsMedia) {
  EXPECT_EQ(mapped({{"media", "Blue"}}, kColours, 0, "QVPAGESIZE"), "@PJL SET QVPAGESIZE=B\n");
}

TEST(KeyValue, OfAnAbsentPageSizeIsEmptyForUnknownMedia) {
  EXPECT_EQ(mapped({{"media", "Pink"}}, kColours, 0, "QVPAGESIZE"), "@PJL SET QVPAGESIZE=\n");
}

TEST(KeyValue, OfAnAbsentPageSizeIsCustomsizeForMediaThatContainCustom) {
  EXPECT_EQ(mapped({{"media", "Custom.595x842"}}, kColours, 0, "QVPAGESIZE"),
            "@PJL SET QVPAGESIZE=CUSTOMSIZE\n");
  EXPECT_EQ(mapped({{"media", "MyCustomPaper"}}, {}, 0, "QVPAGESIZE"),
            "@PJL SET QVPAGESIZE=CUSTOMSIZE\n");
}

TEST(KeyValue, OfAnAbsentPageSizeIsEmptyForMediaAndATableWithoutRows) {
  EXPECT_EQ(mapped({{"media", "Blue"}}, {}, 0, "QVPAGESIZE"), "@PJL SET QVPAGESIZE=\n");
}

TEST(KeyValue, OfAnAbsentPageSizeWithoutMediaIsTheDefault) {
  EXPECT_EQ(mapped({}, kColours, 1, "QVPAGESIZE"), "@PJL SET QVPAGESIZE=G\n");
}

TEST(KeyValue, OfAPresentPageSizeDoesNotAskForTheMedia) {
  EXPECT_EQ(mapped({{"QVColour", "Pink"}, {"media", "Blue"}}, kColours, 0, "QVPAGESIZE"),
            "@PJL SET QVPAGESIZE=\n");
}

TEST(KeyValue, OfOtherVariablesDoesNotAskForTheMedia) {
  EXPECT_EQ(mapped({{"media", "Blue"}}, kColours, 0), "@PJL SET COLOUR=R\n");
}

TEST(KeyValue, OfAnAbsentPaperIsAutoWhateverTheTable) {
  EXPECT_EQ(mapped({}, kColours, 1, "PAPER"), "@PJL SET PAPER=AUTO\n");
  EXPECT_EQ(mapped({}, {}, 0, "PAPER"), "@PJL SET PAPER=AUTO\n");
  EXPECT_EQ(mapped({{"media", "Custom.1x1"}}, kColours, 9, "PAPER"), "@PJL SET PAPER=AUTO\n");
}

TEST(KeyValue, OfAPresentPaperIsThatOfTheTable) {
  EXPECT_EQ(mapped({{"QVColour", "Red"}}, kColours, 1, "PAPER"), "@PJL SET PAPER=R\n");
  EXPECT_EQ(mapped({{"QVColour", "Pink"}}, kColours, 1, "PAPER"), "@PJL SET PAPER=\n");
}

TEST(ValueWithArray, IsTheValueOfTheText) {
  EXPECT_EQ(mappedText("Green", kColours, false), "@PJL SET COLOUR=G\n");
}

TEST(ValueWithArray, IsEmptyForAnUnknownText) {
  EXPECT_EQ(mappedText("Pink", kColours, false), "@PJL SET COLOUR=\n");
  EXPECT_EQ(mappedText("Pink", kColours, true), "@PJL SET COLOUR=\n");
}

TEST(ValueWithArray, IsEmptyForATableWithoutRows) {
  EXPECT_EQ(mappedText("Green", {}, false), "@PJL SET COLOUR=\n");
}

TEST(ValueWithArray, IsTheFirstOfTwoRowsWithTheSameKey) {
  constexpr ValueRow kTwice[] = {{"Red", "1"}, {"Red", "2"}};
  EXPECT_EQ(mappedText("Red", kTwice, false), "@PJL SET COLOUR=1\n");
}

TEST(ValueWithArray, IsHexTextWhenAskedForPaddedWithASpace) {
  constexpr ValueRow kTabbed[] = {{"Tabbed", "A\tB"}};
  EXPECT_EQ(mappedText("Tabbed", kTabbed, true), "@PJL SET COLOUR=41 942\n");
}

TEST(ValueWithArray, IsEmptyHexTextForAnEmptyValue) {
  constexpr ValueRow kEmpty[] = {{"Off", ""}};
  EXPECT_EQ(mappedText("Off", kEmpty, true), "@PJL SET COLOUR=\n");
}

int writesIfContained(const Options& options, std::string& text) {
  TestJob job(options);
  MemoryOutput output;
  const int wrote =
      Output_IfValueContains(output.stream(), *job, "QVPaper", "Custom", "PAPER", "CUSTOMSIZE");
  text = output.text();
  return wrote;
}

TEST(IfValueContains, WritesTheTextAndSaysSo) {
  std::string text;
  EXPECT_EQ(writesIfContained({{"QVPaper", "MyCustomPaper"}}, text), 1);
  EXPECT_EQ(text, "@PJL SET PAPER=CUSTOMSIZE\n");
}

TEST(IfValueContains, WritesNothingWithoutTheOption) {
  std::string text;
  EXPECT_EQ(writesIfContained({}, text), 0);
  EXPECT_EQ(text, "");
}

TEST(IfValueContains, WritesNothingForAnotherText) {
  std::string text;
  EXPECT_EQ(writesIfContained({{"QVPaper", "custom"}}, text), 0);
  EXPECT_EQ(text, "");
  EXPECT_EQ(writesIfContained({{"QVPaper", ""}}, text), 0);
  EXPECT_EQ(text, "");
}

class OrientationValue : public testing::Test {
 protected:
  ~OrientationValue() override { setCustomPaper(0, 0); }

  static void setCustomPaper(std::int32_t width, std::int32_t height) {
    job::widthLength = width;
    job::heighLength = height;
  }

  static std::string written(const Options& options, std::span<const OrientationRow> rows = kRows,
                             std::size_t defaultIndex = 0) {
    TestJob job(options);
    MemoryOutput output;
    Output_OrientationValue(output.stream(), *job, "QVTurn", "TURN", rows, defaultIndex);
    return output.text();
  }

  static constexpr OrientationRow kRows[] = {{"0", "Portrait", "PORTRAIT"},
                                             {"1", "Landscape", "LANDSCAPE"}};
};

TEST_F(OrientationValue, IsKnownByItsName) {
  EXPECT_EQ(written({{"QVTurn", "Portrait"}}), "@PJL SET TURN=PORTRAIT\n");
  EXPECT_EQ(written({{"QVTurn", "Landscape"}}), "@PJL SET TURN=LANDSCAPE\n");
}

TEST_F(OrientationValue, IsKnownByItsDigit) {
  EXPECT_EQ(written({{"QVTurn", "0"}}), "@PJL SET TURN=PORTRAIT\n");
  EXPECT_EQ(written({{"QVTurn", "1"}}), "@PJL SET TURN=LANDSCAPE\n");
}

TEST_F(OrientationValue, IsEmptyForAnUnknownText) {
  setCustomPaper(30000, 20000);
  EXPECT_EQ(written({{"QVTurn", "portrait"}}), "@PJL SET TURN=\n");
  EXPECT_EQ(written({{"QVTurn", "2"}}), "@PJL SET TURN=\n");
  EXPECT_EQ(written({{"QVTurn", ""}}), "@PJL SET TURN=\n");
}

TEST_F(OrientationValue, TakesTheFirstRowThatKnowsTheText) {
  constexpr OrientationRow kCrossed[] = {{"Down", "Up", "FIRST"}, {"Up", "Down", "SECOND"}};
  EXPECT_EQ(written({{"QVTurn", "Up"}}, kCrossed), "@PJL SET TURN=FIRST\n");
  EXPECT_EQ(written({{"QVTurn", "Down"}}, kCrossed), "@PJL SET TURN=FIRST\n");
}

TEST_F(OrientationValue, OfAChoiceDoesNotFollowThePaper) {
  setCustomPaper(30000, 20000);
  EXPECT_EQ(written({{"QVTurn", "Portrait"}}), "@PJL SET TURN=PORTRAIT\n");
}

TEST_F(OrientationValue, OfAnAbsentChoiceIsLandscapeOnAWideCustomPage) {
  setCustomPaper(30000, 20000);
  EXPECT_EQ(written({}), "@PJL SET TURN=LANDSCAPE\n");
}

TEST_F(OrientationValue, OfAnAbsentChoiceIsPortraitOnASquareOrUprightCustomPage) {
  setCustomPaper(20000, 20000);
  EXPECT_EQ(written({}), "@PJL SET TURN=PORTRAIT\n");
  setCustomPaper(20000, 30000);
  EXPECT_EQ(written({}), "@PJL SET TURN=PORTRAIT\n");
}

TEST_F(OrientationValue, OfAnAbsentChoiceIsPortraitOnAStandardPage) {
  EXPECT_EQ(written({}), "@PJL SET TURN=PORTRAIT\n");
}

TEST_F(OrientationValue, OfAnAbsentChoiceFollowsThePaperAndNotTheDefault) {
  EXPECT_EQ(written({}, kRows, 1), "@PJL SET TURN=PORTRAIT\n");
}

TEST_F(OrientationValue, OfAnAbsentChoiceIsEmptyWhenTheDefaultIsBeyondTheTable) {
  setCustomPaper(30000, 20000);
  EXPECT_EQ(written({}, kRows, 2), "@PJL SET TURN=\n");
  EXPECT_EQ(written({}, {}, 0), "@PJL SET TURN=\n");
}

TEST(DefaultIndexWithArray, IsTheIndexOfTheFirstEqualText) {
  constexpr const char* kTexts[] = {"a", "b", "b"};
  EXPECT_EQ(Output_GetDefaultIndexWithArray("b", kTexts), 1U);
}

TEST(DefaultIndexWithArray, SkipsEmptyEntries) {
  constexpr const char* kTexts[] = {nullptr, "a", nullptr, "b"};
  EXPECT_EQ(Output_GetDefaultIndexWithArray("b", kTexts), 3U);
}

TEST(DefaultIndexWithArray, IsZeroWhenNoneIsEqual) {
  constexpr const char* kTexts[] = {"a", "b", nullptr};
  EXPECT_EQ(Output_GetDefaultIndexWithArray("B", kTexts), 0U);
  EXPECT_EQ(Output_GetDefaultIndexWithArray("", kTexts), 0U);
}

TEST(DefaultIndexWithArray, IsZeroForNoTextsAtAll) {
  EXPECT_EQ(Output_GetDefaultIndexWithArray("a", {}), 0U);
}

TEST(ValueEqual, IsTrueForExactlyTheText) {
  TestJob job(Options{{"QVDuplex", "OFF"}});
  EXPECT_TRUE(isValueEqual(nullptr, *job, "QVDuplex", "OFF"));
  EXPECT_FALSE(isValueEqual(nullptr, *job, "QVDuplex", "Off"));
  EXPECT_FALSE(isValueEqual(nullptr, *job, "QVDuplex", "OFFF"));
  EXPECT_FALSE(isValueEqual(nullptr, *job, "QVDuplex", ""));
}

TEST(ValueEqual, IsFalseWithoutTheOption) {
  TestJob job;
  EXPECT_FALSE(isValueEqual(nullptr, *job, "QVDuplex", "OFF"));
  EXPECT_FALSE(isValueEqual(nullptr, *job, "QVDuplex", ""));
}

TEST(ValueEqual, IsTrueForAnEmptyOptionAndAnEmptyText) {
  TestJob job(Options{{"QVDuplex", ""}});
  EXPECT_TRUE(isValueEqual(nullptr, *job, "QVDuplex", ""));
}

TEST(ValueEqual, IgnoresItsFirstArgument) {
  TestJob job(Options{{"QVDuplex", "OFF"}});
  const int anything = 7;
  EXPECT_TRUE(isValueEqual(&anything, *job, "QVDuplex", "OFF"));
}

}  // namespace
}  // namespace kelm::pjl
