// The writers in the table: the dialog's value, its default, and what happens in a plain job.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "platform/fake/fake_platform.hpp"
#include "psrewrite/features.hpp"
#include "tests/unit/psrewrite/written.hpp"

namespace kelm::psrewrite {
namespace {

using Options = tests::TestJob::Options;

constexpr char kValueLines[] = "(1) setvalue\n%%EndFeature\n";
constexpr char kAfter[] = "%%EndFeature\n";

enum class Plain { kDrop, kCopy, kLeave, kOwn };
using enum Plain;

struct ValueRow {
  const char* name;
  FeatureWriter writer;
  int code;
  const char* key;
  const char* text;  // without the option
  Plain plain;
};
void PrintTo(const ValueRow& row, std::ostream* out) { *out << row.name; }

constexpr char kArial[] = "417269616C4D54";

#define WRITER(name) #name, name
const ValueRow kValueRows[] = {
    {WRITER(outputQVPageNumStartNum), 1, "QVPageNumStartNumValue", "1", kDrop},
    {WRITER(outputQVPageNumStartPage), 2, "QVPageNumStartPageValue", "1", kDrop},
    {WRITER(outputQVStampPageFont), 3, "QVStampPageFontNameStringValueUTF8", kArial, kDrop},
    {WRITER(outputQVStampPageSize), 4, "QVStampPageSizeValue", "8", kDrop},
    {WRITER(outputQVStampPageNumPrint), 16, "QVPageNumPrintPSValue", "8", kDrop},
    {WRITER(outputQVStampPageNumTransparent), 17, "QVPageNumTransparentPSValue", "8", kDrop},
    {WRITER(outputQVStampPageNumPosition), 18, "QVPageNumPositionPSValue", "0", kDrop},
    {WRITER(outputQVStampPageDatePrint), 19, "QVDatePrintPSValue", "1", kDrop},
    {WRITER(outputQVStampPageNumDateTransparent), 20, "QVDateTransparentPSValue", "1", kDrop},
    {WRITER(outputQVStampPageNumDateTargetPage), 21, "QVDateTargetPagePSValue", "1", kDrop},
    {WRITER(outputQVStampPageDateSpecify), 22, "QVDateSpecifyPSValue", "0", kDrop},
    {WRITER(outputQVStampPageDatePosition), 23, "QVDatePositionPSValue", "0", kDrop},
    {WRITER(outputQVDateInfo), 5, "QVDateInfoTextValueUTF8", "", kDrop},
    {WRITER(outputQVStampDateFont), 6, "QVStampDateFontNameStringValueUTF8", kArial, kDrop},
    {WRITER(outputQVStampDateSize), 7, "QVStampDateSizeValue", "8", kDrop},
    {WRITER(outputQVStampTextPosition), 27, "QVTextPositionPSValue", "0", kDrop},
    {WRITER(outputQVStampTextPrint), 24, "QVTextPrintPSValue", "1", kDrop},
    {WRITER(outputQVStampTextTransparent), 25, "QVTextTransparentPSValue", "1", kDrop},
    {WRITER(outputQVStampTextTargetPage), 26, "QVTextTargetPagePSValue", "1", kDrop},
    {WRITER(outputQVTextInfo), 12, "QVTextInfoTextValueUTF8", "", kDrop},
    {WRITER(outputQVStampTextFont), 13, "QVStampTextFontNameStringValueUTF8", kArial, kDrop},
    {WRITER(outputQVStampTextSize), 14, "QVStampTextSizeValue", "8", kDrop},
    {WRITER(outputQVImageShiftFrontV), 8, "QVImageShiftFrontVValue100", "0", kCopy},
    {WRITER(outputQVImageShiftFrontH), 9, "QVImageShiftFrontHValue100", "0", kCopy},
    {WRITER(outputQVImageShiftBackV), 10, "QVImageShiftBackVValue100", "0", kCopy},
    {WRITER(outputQVImageShiftBackH), 11, "QVImageShiftBackHValue100", "0", kCopy},
    {WRITER(outputQVHeaderFooterPrint), 15, "QVHeaderFooterPrintPSValue", "0", kDrop},
    {WRITER(outputQVGutterDistance), 101, "QVGutterDistanceValue100", "0", kCopy},
    {WRITER(outputQVBookletGutterDistance), 102, "QVBookletGutterDistanceValue100", "0", kCopy},
    {WRITER(outputQVGCCyan), 201, "QVGCCyanStringValue", "100", kCopy},
    {WRITER(outputQVGCMagenta), 202, "QVGCMagentaStringValue", "100", kCopy},
    {WRITER(outputQVGCYellow), 203, "QVGCYellowStringValue", "100", kCopy},
    {WRITER(outputQVGCBlack), 204, "QVGCBlackStringValue", "100", kCopy},
    {WRITER(outputQVGCGray), 207, "QVGCGrayStringValue", "100", kCopy},
    {WRITER(outputQVGCRed), 211, "QVGCRedStringValue", "100", kCopy},
    {WRITER(outputQVImageBarcodeSelection), 205, "QVBarcodeAreaDefinitionStringValueUTF8", "",
     kOwn},
    {WRITER(outputQVImageBarcodeArea), 208, "QVBarcodeAreaPSValue", "", kOwn},
    {WRITER(outputQVOutputProfileSelection), 206, "QVOutputProfileSelectionStringValueUTF8", "",
     kOwn},
    {WRITER(outputQVPageTrayStandard), 304, "QVPageTrayStandardTrayValue", "", kDrop},
    {WRITER(outputQVPageTrayTray1), 305, "QVPageTrayTray1Value", "", kDrop},
    {WRITER(outputQVPageTrayTray2), 306, "QVPageTrayTray2Value", "", kDrop},
    {WRITER(outputQVPageTrayTray3), 311, "QVPageTrayTray3Value", "", kDrop},
    {WRITER(outputQVPageTrayExternalFeeder), 316, "QVPageTrayExternalFeederValue", "", kDrop},
    {WRITER(outputQVPageTray), 312, "QVPageTrayPSValue", "Off", kDrop},
    {WRITER(outputQVOutputBox), 307, "QVPageOutputBoxPSValue", "", kLeave},
    {WRITER(outputQVManualZoom), 315, "QVManualZoomPSValue", "OFF", kOwn},
    {WRITER(outputQVZoomRate), 301, "QVZoomRateTextValue", "100", kLeave},
    {WRITER(outputQVTargetPaperSizeWidth), 302, "QVTargetPaperSizeWidthValue100", "9000", kOwn},
    {WRITER(outputQVTargetPaperSizeHeight), 303, "QVTargetPaperSizeHeightValue100", "14800", kOwn},
    {WRITER(outputQVOwnerName), 401, "QVOwnerNamePSValue", "", kOwn},
    {WRITER(outputQVJobName), 403, "QVJobNamePSValue", "", kOwn},
    {WRITER(outputQVSecretNum), 405, "QVSecretNumPSValue", "", kOwn},
    {WRITER(outputQVSecretNumInfo), 406, "QVSecretNumTextValue", "", kOwn},
    {WRITER(outputQVJobComment), 408, "QVJobCommentTextValueUTF8", "", kOwn},
    {WRITER(outputQVFormSelect1), 409, "QVFormSelect1StringValueUTF8", "", kOwn},
    {WRITER(outputQVFormSelect2), 410, "QVFormSelect2StringValueUTF8", "", kOwn},
    {WRITER(outputQVHideJob), 407, "QVHideJobPSValue", "", kDrop},
};
#undef WRITER

// What plain jobs make of kValueLines, in which there is no placeholder.
Written plainlyWritten(Plain plain) {
  if (plain == kDrop) return {false, "", kAfter};
  if (plain == kLeave) return {false, "", kValueLines};
  return {true, "(1) setvalue\n", kAfter};
}

class ValueWriter : public testing::TestWithParam<ValueRow> {
  platform::FakePlatform platform_;
};

TEST_P(ValueWriter, PutsTheDialogValueIntoTheBrackets) {
  tests::TestJob job({{"PrintPDE", ""}, {GetParam().key, "from the dialog"}});
  const Written expected{true, "(from the dialog) setvalue\n", kAfter};
  EXPECT_EQ(written(GetParam().writer, *job, kValueLines), expected);
}

TEST_P(ValueWriter, PutsItsDefaultIntoTheBracketsOfADialogJob) {
  tests::TestJob job(tests::TestJob::Options{{"PrintPDE", ""}});
  const Written expected{true, std::string("(") + GetParam().text + ") setvalue\n", kAfter};
  EXPECT_EQ(written(GetParam().writer, *job, kValueLines), expected);
}

TEST_P(ValueWriter, WritesAnEmptyDialogValue) {
  tests::TestJob job({{"PrintPDE", ""}, {GetParam().key, ""}});
  EXPECT_EQ(written(GetParam().writer, *job, kValueLines),
            (Written{true, "() setvalue\n", kAfter}));
}

TEST_P(ValueWriter, WritesNothingAtTheEndOfADialogJob) {
  tests::TestJob job(tests::TestJob::Options{{"PrintPDE", ""}});
  EXPECT_EQ(written(GetParam().writer, *job, ""), (Written{false, "", ""}));
}

TEST_P(ValueWriter, IsTheOneOfItsCode) {
  tests::TestJob job({{"PrintPDE", ""}, {GetParam().key, "x"}});
  EXPECT_EQ(written(featureWriter(GetParam().code), *job, kValueLines),
            (Written{true, "(x) setvalue\n", kAfter}));
}

TEST_P(ValueWriter, DropsCopiesOrLeavesThePlainLine) {
  tests::TestJob job(Options{{GetParam().key, "not for plain jobs"}});
  EXPECT_EQ(written(GetParam().writer, *job, kValueLines), plainlyWritten(GetParam().plain));
}

TEST_P(ValueWriter, WritesNothingAtTheEndOfAPlainJob) {
  tests::TestJob job;
  EXPECT_EQ(written(GetParam().writer, *job, ""), (Written{false, "", ""}));
}

INSTANTIATE_TEST_SUITE_P(Table, ValueWriter, testing::ValuesIn(kValueRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ValueWriters, AreAllOfTheTableButThoseOfTheirOwn) {
  std::size_t withWriter = 0;
  for (const Feature& feature : features()) withWriter += feature.writer ? 1U : 0U;
  // 308, 313, 317, 402 and 404 handle dialog and plain jobs themselves.
  EXPECT_EQ(withWriter, std::size(kValueRows) + 5)
      << "each ValueFeature needs a row in kValueRows in this file";
}

TEST(DialogPath, StartNumberFiveKeepsTheTail) {
  tests::TestJob job({{"PrintPDE", "1"}, {"QVPageNumStartNumValue", "5"}});
  EXPECT_EQ(written(outputQVPageNumStartNum, *job, "(1) QVstartnum set % tail\n"),
            (Written{true, "(5) QVstartnum set % tail\n", ""}));
}

TEST(PlainPath, ImageShiftIsCopiedUnchanged) {
  tests::TestJob job;
  EXPECT_EQ(written(outputQVImageShiftFrontV, *job, "(0) shift XXX\r\n"),
            (Written{true, "(0) shift XXX\r\n", ""}));
}

TEST(PlainPath, StampPageNumberIsRemoved) {
  tests::TestJob job;
  EXPECT_EQ(written(outputQVPageNumStartNum, *job, "(1) start\n(2) next\n"),
            (Written{false, "", "(2) next\n"}));
}

TEST(PageSizeWriters, AreDispatchedByNoCode) {
  EXPECT_FALSE(featureWriter(309));
  EXPECT_FALSE(featureWriter(310));
}

TEST(PageSizeWriters, FillTheBracketsInBothKindsOfJobs) {
  for (const char* option : {"PrintPDE", "other"}) {
    tests::TestJob job({{option, "1"},
                        {"QVPAGESizeWidthValue100", "12345"},
                        {"QVPAGESizeHeightValue100", "23456"}});
    EXPECT_EQ(written(outputQVPAGESizeWidth, *job, kValueLines),
              (Written{true, "(12345) setvalue\n", kAfter}));
    EXPECT_EQ(written(outputQVPAGESizeHeight, *job, kValueLines),
              (Written{true, "(23456) setvalue\n", kAfter}));
  }
}

TEST(PageSizeWriters, HaveDefaultsInBothKindsOfJobs) {
  for (const char* option : {"PrintPDE", "other"}) {
    tests::TestJob job(Options{{option, "1"}});
    EXPECT_EQ(written(outputQVPAGESizeWidth, *job, kValueLines),
              (Written{true, "(9000) setvalue\n", kAfter}));
    EXPECT_EQ(written(outputQVPAGESizeHeight, *job, kValueLines),
              (Written{true, "(14800) setvalue\n", kAfter}));
  }
}

TEST(PageSizeWriters, WriteNothingAtTheEnd) {
  tests::TestJob job;
  EXPECT_EQ(written(outputQVPAGESizeWidth, *job, ""), (Written{false, "", ""}));
  EXPECT_EQ(written(outputQVPAGESizeHeight, *job, ""), (Written{false, "", ""}));
}

}  // namespace
}  // namespace kelm::psrewrite
