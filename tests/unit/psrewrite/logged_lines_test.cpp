// What readers and writers of lines leave in the diagnostic files.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <string>

#include "job/diagnostics.hpp"
#include "psrewrite/features.hpp"
#include "psrewrite/line_rewriters.hpp"
#include "tests/support/diagnostics_on.hpp"
#include "tests/unit/psrewrite/written.hpp"

namespace kelm::psrewrite {
namespace {

using tests::TestJob;

class LoggedLines : public testing::Test {
 protected:
  LoggedLines() { diagnostics_.nameFiles(); }
  std::string asRead() { return diagnostics_.content(job::file_2_Name); }
  std::string asWritten() { return diagnostics_.content(job::file_3_Name); }

  tests::DiagnosticsOn diagnostics_;
};

TEST_F(LoggedLines, OfReadLineAreItsBytesWithoutZeroBytes) {
  writtenFrom(std::string_view("a\0b\r\nrest", 9), [](JobStream& stream, LineBuffer& line) {
    return readLine(stream, line.data(), LineBuffer::kSize) == 5;
  });
  EXPECT_EQ(asRead(), "ab\r\n");
  EXPECT_EQ(asWritten(), "no file");
}

TEST_F(LoggedLines, OfReadLineEndAtItsLimit) {
  writtenFrom("abcdef\n", [](JobStream& stream, LineBuffer& line) {
    return readLine(stream, line.data(), 4) == 4;
  });
  EXPECT_EQ(asRead(), "abcd");
}

TEST_F(LoggedLines, OfAValueAreTheWholeLineReadAndTheLineWritten) {
  TestJob job({{"PrintPDE", ""}, {"QVPageNumStartNumValue", "7"}});
  written(outputQVPageNumStartNum, *job, "(5) set (x) y\n");
  EXPECT_EQ(asRead(), "(5) set (x) y\n");
  EXPECT_EQ(asWritten(), "(7) set (x");
}

TEST_F(LoggedLines, OfAValueThatFindsNoLineAreNone) {
  TestJob job(TestJob::Options{{"PrintPDE", ""}});
  written(outputQVPageNumStartNum, *job, "");
  EXPECT_EQ(asRead(), "no file");
  EXPECT_EQ(asWritten(), "no file");
}

TEST_F(LoggedLines, OfADroppedLineAreThatOfTheInput) {
  TestJob job;
  written(outputQVPageNumStartNum, *job, "(5) set\nnext\n");
  EXPECT_EQ(asRead(), "(5) set\n");
  EXPECT_EQ(asWritten(), "no file");
}

TEST_F(LoggedLines, OfTextStampsAndTrayRepeatAreNone) {
  TestJob job;
  written(outputQVTextInfo, *job, "(5) set\n");
  written(outputQVStampTextSize, *job, "(5) set\n");
  written(outputQVPageTrayRepeat, *job, "(5) set\n");
  EXPECT_EQ(asRead(), "no file");
  EXPECT_EQ(asWritten(), "no file");
}

TEST_F(LoggedLines, OfACopiedLineAreTheLineTwice) {
  TestJob job;
  written(outputQVImageShiftFrontV, *job, "(5) shift\nnext\n");
  written(outputQVTargetPaperSize, *job, "(A4) size\nnext\n");
  EXPECT_EQ(asRead(), "(5) shift\n(A4) size\n");
  EXPECT_EQ(asWritten(), "(5) shift\n(A4) size\n");
}

TEST_F(LoggedLines, OfTheRedBalanceAreNone) {
  TestJob job;
  written(outputQVGCRed, *job, "(5) red\n");
  EXPECT_EQ(asRead(), "no file");
  EXPECT_EQ(asWritten(), "no file");
}

TEST_F(LoggedLines, OfTheRedBalanceOfADialogJobAreAsOfAnyValue) {
  TestJob job(TestJob::Options{{"PrintPDE", ""}});
  written(outputQVGCRed, *job, "(5) red\n");
  EXPECT_EQ(asRead(), "(5) red\n");
  EXPECT_EQ(asWritten(), "(100) red\n");
}

TEST_F(LoggedLines, OfAPlaceholderAreTheLineReadAndTheLineWritten) {
  TestJob job(TestJob::Options{{"QVZoomRate", "OFF"}});
  written(outputQVManualZoom, *job, "(XXX) zoom\nnext\n");
  EXPECT_EQ(asRead(), "(XXX) zoom\n");
  EXPECT_EQ(asWritten(), "(OFF) zoom\n");
}

TEST_F(LoggedLines, OfACustomValueHaveTheExtraLineRead) {
  TestJob job(TestJob::Options{{"QVJobComment", "Custom.Hi"}});
  written(outputQVJobComment, *job, "Hi\n(XXX) comment\nnext\n");
  EXPECT_EQ(asRead(), "Hi\n(XXX) comment\n");
  EXPECT_EQ(asWritten(), "(4869) comment\n");
}

TEST_F(LoggedLines, OfAnOrientationThatIsDroppedAreThatOfTheInput) {
  TestJob job;
  written(outputQVOrientation, *job, "(Portrait) turn\n");
  EXPECT_EQ(asRead(), "(Portrait) turn\n");
  EXPECT_EQ(asWritten(), "no file");
}

TEST_F(LoggedLines, OfATurnedOrientationAreTheLineReadAndTheLineWritten) {
  TestJob job(TestJob::Options{{"QVOrientation", "1"}});
  written(outputQVOrientation, *job, "(Portrait) turn\n");
  EXPECT_EQ(asRead(), "(Portrait) turn\n");
  EXPECT_EQ(asWritten(), "(Landscape) turn\n");
}

TEST_F(LoggedLines, OfACustomTargetPaperAreTheLineReadAndTheLineWritten) {
  TestJob job({{"PrintPDE", ""}, {"QVTargetPaperSize", "Custom"}});
  written(outputQVTargetPaperSize, *job, "(A4) size\n");
  EXPECT_EQ(asRead(), "(A4) size\n");
  EXPECT_EQ(asWritten(), "(CustomSize) size\n");
}

TEST_F(LoggedLines, OfTheDialogsTrayRepeatAreThoseOfAnyPlaceholder) {
  TestJob job(TestJob::Options{{"PrintPDE", ""}});
  written(outputQVPageTrayRepeat, *job, "(XXX) repeat\n");
  EXPECT_EQ(asRead(), "(XXX) repeat\n");
  EXPECT_EQ(asWritten(), "(0) repeat\n");
}

TEST_F(LoggedLines, OfASizeRewrittenByHandAreTheLineReadAndTheLineWritten) {
  writtenFrom("(Auto) XXX\n(Landscape)\n", [](JobStream& stream, LineBuffer& line) {
    return outputFeatureByCustomSizeValue(stream, line, "5") &&
           outputQVCustomOrientation(stream, line, true);
  });
  EXPECT_EQ(asRead(), "(Auto) XXX\n(Landscape)\n");
  EXPECT_EQ(asWritten(), "(Auto) 5\n(Portrait)\n");
}

TEST_F(LoggedLines, OfATitleAreTheResultOfTheSecondRewriterOnly) {
  writtenFrom("", [](JobStream& stream, LineBuffer&) {
    outputFeatureByCustomSizeTitle(stream, "first FaceUp", "FaceUp", "FaceDown");
    outputFeatureByCustomSizeValueTitle(stream, "second FaceUp", "FaceUp", "FaceDown");
    return true;
  });
  EXPECT_EQ(asRead(), "no file");
  EXPECT_EQ(asWritten(), "second FaceDown\n");
}

}  // namespace
}  // namespace kelm::psrewrite
