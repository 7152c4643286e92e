// The printer's keywords: which line opens which section, and which codes have a writer.
// SPDX-License-Identifier: Apache-2.0
#include "psrewrite/features.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace kelm::psrewrite {
namespace {

struct KeywordRow {
  const char* keyword;
  int code;
  bool hasWriter = true;
};
void PrintTo(const KeywordRow& row, std::ostream* out) { *out << row.keyword; }

// In the order in which the keywords are looked for in a line.
constexpr KeywordRow kKeywordRows[] = {
    {"QVOutputBox", 307},
    {"QVPageNumStartNum", 1},
    {"QVPageNumStartPage", 2},
    {"QVStampPageFont", 3},
    {"QVStampPageSize", 4},
    {"QVDateInfo", 5},
    {"QVStampDateFont", 6},
    {"QVStampDateSize", 7},
    {"QVTextInfo", 12},
    {"QVStampTextFont", 13},
    {"QVStampTextSize", 14},
    {"QVImageShiftFrontV", 8},
    {"QVImageShiftFrontH", 9},
    {"QVImageShiftBackV", 10},
    {"QVImageShiftBackH", 11},
    {"QVGutterDistance", 101},
    {"QVBookletGutterDistance", 102},
    {"QVGCCyan", 201},
    {"QVGCMagenta", 202},
    {"QVGCYellow", 203},
    {"QVGCBlack", 204},
    {"QVGCGray", 207},
    {"QVGCRed", 211},
    {"QVBarcodeSelection", 205},
    {"QVOutputProfileSelection", 206},
    {"QVOrientation", 308},
    {"QVManualZoom", 315},
    {"QVZoomRate", 301},
    {"QVPAGESizeWidth", 309, false},
    {"QVPAGESizeHeight", 310, false},
    {"QVTargetPaperSizeWidth", 302},
    {"QVTargetPaperSizeHeight", 303},
    {"QVTargetPaperSize", 313},
    {"QVPageTrayStandard", 304},
    {"QVPageTrayTray1", 305},
    {"QVPageTrayTray2", 306},
    {"QVPageTrayTray3", 311},
    {"QVPageTrayExternalFeeder", 316},
    {"QVPageTrayRepeat", 317},
    {"QVPageTray", 312},
    {"QVOwnerNameInfo", 402},
    {"QVOwnerName", 401},
    {"QVJobNameInfo", 404},
    {"QVJobName", 403},
    {"QVSecretNumInfo", 406},
    {"QVSecretNum", 405},
    {"QVJobComment", 408},
    {"QVFormSelect1", 409},
    {"QVFormSelect2", 410},
    {"QVHeaderFooterPrint", 15},
    {"QVPageNumPrint", 16},
    {"QVPageNumPosition", 18},
    {"QVDatePrint", 19},
    {"QVDateTransparent", 20},
    {"QVDateTargetPage", 21},
    {"QVDateSpecify", 22},
    {"QVDatePosition", 23},
    {"QVTextPrint", 24},
    {"QVTextTransparent", 25},
    {"QVTextTargetPage", 26},
    {"QVTextPosition", 27},
    {"QVPageNumTransparent", 17},
    {"QVBarcodeArea", 208},
    {"QVBarcodeDensity", 209, false},
    {"QVBarcodeProof", 210, false},
    {"QVHideJob", 407},
};

class EveryKeyword : public testing::TestWithParam<KeywordRow> {};

TEST_P(EveryKeyword, OpensItsSection) {
  const std::string line = std::string("%BeginFeature: *") + GetParam().keyword + " Choice\n";
  EXPECT_EQ(getFeature(line.c_str()), GetParam().code);
}

TEST_P(EveryKeyword, IsFoundAnywhereInTheLine) {
  const std::string line = std::string("BeginFeature x") + GetParam().keyword + "y";
  EXPECT_EQ(getFeature(line.c_str()), GetParam().code);
}

TEST_P(EveryKeyword, MeansNothingWithoutTheOpeningWord) {
  const std::string line = std::string("%EndFeature: *") + GetParam().keyword + " Choice\n";
  EXPECT_EQ(getFeature(line.c_str()), 0);
}

TEST_P(EveryKeyword, HasAWriterOrPassesThrough) {
  EXPECT_EQ(static_cast<bool>(featureWriter(GetParam().code)), GetParam().hasWriter);
}

INSTANTIATE_TEST_SUITE_P(Table, EveryKeyword, testing::ValuesIn(kKeywordRows),
                         [](const auto& row) { return std::string(row.param.keyword); });

TEST(Features, StandInTheOrderOfTheSearch) {
  ASSERT_EQ(features().size(), std::size(kKeywordRows))
      << "each feature section needs a name in psrewrite/features.cpp and a row in this file";
  for (std::size_t i = 0; i < std::size(kKeywordRows); ++i) {
    EXPECT_STREQ(features()[i].keyword, kKeywordRows[i].keyword);
    EXPECT_EQ(features()[i].code, kKeywordRows[i].code);
  }
}

TEST(GetFeature, OfNoLineIsZero) { EXPECT_EQ(getFeature(nullptr), 0); }

TEST(GetFeature, OfAnEmptyLineIsZero) { EXPECT_EQ(getFeature(""), 0); }

TEST(GetFeature, OfAnOpeningLineWithAnotherKeywordIsZero) {
  EXPECT_EQ(getFeature("%BeginFeature: *PageSize A4\n"), 0);
}

TEST(GetFeature, OfTargetPaperSizeWidthIsNotThatOfTargetPaperSize) {
  EXPECT_EQ(getFeature("%BeginFeature: *QVTargetPaperSizeWidth Custom\n"), 302);
}

TEST(GetFeature, OfPageTrayRepeatIsNotThatOfPageTray) {
  EXPECT_EQ(getFeature("%BeginFeature: *QVPageTrayRepeat On\n"), 317);
}

TEST(GetFeature, OfALineThatMentionsAKeywordWithoutBeginFeatureIsZero) {
  EXPECT_EQ(getFeature("% QVGCRed is set below\n"), 0);
}

TEST(GetFeature, OfBarcodeDensityIs209) {
  EXPECT_EQ(getFeature("%BeginFeature: *QVBarcodeDensity 0\n"), 209);
}

TEST(GetFeature, LooksForLettersAsTheyAre) {
  EXPECT_EQ(getFeature("%beginfeature: *QVGCRed 100\n"), 0);
  EXPECT_EQ(getFeature("%BeginFeature: *qvgcred 100\n"), 0);
}

TEST(GetFeature, FindsTheKeywordInFrontOfTheOpeningWordToo) {
  EXPECT_EQ(getFeature("QVGCRed BeginFeature"), 211);
}

TEST(GetFeature, TakesTheEarlierKeywordOfTheTable) {
  EXPECT_EQ(getFeature("%BeginFeature: *QVHideJob QVOutputBox\n"), 307);
  EXPECT_EQ(getFeature("%BeginFeature: *QVDatePrint QVTextInfo\n"), 12);
}

TEST(GetFeature, EndsAtAZeroByte) { EXPECT_EQ(getFeature("%BeginFeature: *\0QVGCRed 100\n"), 0); }

TEST(FeatureWriter, OfACodeThatNoKeywordHasRefersToNothing) {
  for (const int code : {-1, 0, 99, 100, 199, 200, 299, 300, 399, 400, 499}) {
    EXPECT_FALSE(featureWriter(code)) << code;
  }
}

}  // namespace
}  // namespace kelm::psrewrite
