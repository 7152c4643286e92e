// Every variable that copies its option: with a text, with an empty text, without the option.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "pjl/finishing_variables.hpp"
#include "pjl/paper_variables.hpp"
#include "pjl/quality_variables.hpp"
#include "tests/unit/pjl/lines.hpp"

namespace kelm::pjl {
namespace {

struct CopyCase {
  std::string name;  // of the PJL variable
  HeaderStep variable;
  JobKind kind;
  std::string option;
  std::string absent;
};

void PrintTo(const CopyCase& copy, std::ostream* out) { *out << copy.name; }

class CopyVariableLine : public testing::TestWithParam<CopyCase> {
 protected:
  static void expectValue(const Options& options, const std::string& value) {
    const CopyCase& copy = GetParam();
    const std::string line = "@PJL SET " + copy.name + "=" + value + "\n";
    expectLine(copy.variable, copy.kind, options, line);
  }
};

TEST_P(CopyVariableLine, HasTheOptionsTextAsItIs) {
  const std::string& option = GetParam().option;
  expectValue({{option, "12.5 mm"}}, "12.5 mm");
  expectValue({{option, "Custom.7"}}, "Custom.7");
  expectValue({{option, "OFF"}}, "OFF");
  expectValue({{option, " 9ü\t=%s"}}, " 9ü\t=%s");
}

TEST_P(CopyVariableLine, IsEmptyForAnEmptyText) { expectValue({{GetParam().option, ""}}, ""); }

TEST_P(CopyVariableLine, HasItsDefaultWithoutTheOption) { expectValue({}, GetParam().absent); }

const CopyCase kCopies[] = {
    {"QVPAGESIZEWIDTH", &Output_QVPAGESIZEWIDTH, kBoth, "QVPAGESizeWidthValue100", "21000"},
    {"QVPAGESIZEHEIGHT", &Output_QVPAGESIZEHEIGHT, kBoth, "QVPAGESizeHeightValue100", "29700"},
    {"QVTARGETPAPERSIZEWIDTH", &Output_QVTARGETPAPERSIZEWIDTH, kDialog,
     "QVTargetPaperSizeWidthValue100", "21000"},
    {"QVTARGETPAPERSIZEHEIGHT", &Output_QVTARGETPAPERSIZEHEIGHT, kDialog,
     "QVTargetPaperSizeHeightValue100", "29700"},
    {"QVPAGETRAYSTANDARD", &Output_QVPAGETRAYSTANDARD, kBoth, "QVPageTrayStandardTrayValue", ""},
    {"QVPAGETRAYTRAY1", &Output_QVPAGETRAYTRAY1, kBoth, "QVPageTrayTray1Value", ""},
    {"QVPAGETRAYTRAY2", &Output_QVPAGETRAYTRAY2, kBoth, "QVPageTrayTray2Value", ""},
    {"QVPAGETRAYTRAY3", &Output_QVPAGETRAYTRAY3, kBoth, "QVPageTrayTray3Value", ""},
    {"QVPAGETRAYEXTERNALFEEDER", &Output_QVPAGETRAYTRAYEXTERNALFEEDER, kBoth,
     "QVPageTrayExternalFeederValue", ""},
    {"QVPAGENUMSTARTNUM", &Output_QVPAGENUMSTARTNUM, kBoth, "QVPageNumStartNumValue", "1"},
    {"QVPAGENUMSTARTPAGE", &Output_QVPAGENUMSTARTPAGE, kBoth, "QVPageNumStartPageValue", "1"},
    {"QVSTAMPPAGEFONT", &Output_QVSTAMPPAGEFONT, kBoth, "QVStampPageFontNameStringValueUTF8",
     "417269616C4D54"},
    {"QVSTAMPPAGESIZE", &Output_QVSTAMPPAGESIZE, kBoth, "QVStampPageSizeValue", "8"},
    {"QVDATEINFO", &Output_QVQVDateInfo, kBoth, "QVDateInfoTextValueUTF8", ""},
    {"QVSTAMPDATEFONT", &Output_QVSTAMPDATEFONT, kBoth, "QVStampDateFontNameStringValueUTF8",
     "417269616C4D54"},
    {"QVSTAMPDATESIZE", &Output_QVSTAMPDATESIZE, kBoth, "QVStampDateSizeValue", "8"},
    {"QVIMAGESHIFTFRONTV", &Output_QVIMAGESHIFTFRONTV, kDialog, "QVImageShiftFrontVValue100", "0"},
    {"QVIMAGESHIFTFRONTV", &Output_QVIMAGESHIFTFRONTV, kPlain, "QVImageShiftFrontV", "0"},
    {"QVIMAGESHIFTFRONTH", &Output_QVIMAGESHIFTFRONTH, kDialog, "QVImageShiftFrontHValue100", "0"},
    {"QVIMAGESHIFTFRONTH", &Output_QVIMAGESHIFTFRONTH, kPlain, "QVImageShiftFrontH", "0"},
    {"QVIMAGESHIFTBACKV", &Output_QVIMAGESHIFTBACKV, kDialog, "QVImageShiftBackVValue100", "0"},
    {"QVIMAGESHIFTBACKV", &Output_QVIMAGESHIFTBACKV, kPlain, "QVImageShiftBackV", "0"},
    {"QVIMAGESHIFTBACKH", &Output_QVIMAGESHIFTBACKH, kDialog, "QVImageShiftBackHValue100", "0"},
    {"QVIMAGESHIFTBACKH", &Output_QVIMAGESHIFTBACKH, kPlain, "QVImageShiftBackH", "0"},
    {"QVTEXTINFO", &Output_QVTEXTInfo, kBoth, "QVTextInfoTextValueUTF8", ""},
    {"QVSTAMPTEXTFONT", &Output_QVSTAMPTEXTFONT, kBoth, "QVStampTextFontNameStringValueUTF8",
     "417269616C4D54"},
    {"QVSTAMPTEXTSIZE", &Output_QVSTAMPTEXTSIZE, kBoth, "QVStampTextSizeValue", "8"},
    {"QVGCCYAN", &Output_QVGCCYAN, kDialog, "QVGCCyanStringValue", "100"},
    {"QVGCCYAN", &Output_QVGCCYAN, kPlain, "QVGCCyan", "100"},
    {"QVGCMAGENTA", &Output_QVGCMAGENTA, kDialog, "QVGCMagentaStringValue", "100"},
    {"QVGCMAGENTA", &Output_QVGCMAGENTA, kPlain, "QVGCMagenta", "100"},
    {"QVGCYELLOW", &Output_QVGCYELLOW, kDialog, "QVGCYellowStringValue", "100"},
    {"QVGCYELLOW", &Output_QVGCYELLOW, kPlain, "QVGCYellow", "100"},
    {"QVGCBLACK", &Output_QVGCBLACK, kDialog, "QVGCBlackStringValue", "100"},
    {"QVGCBLACK", &Output_QVGCBLACK, kPlain, "QVGCBlack", "100"},
    {"QVBARCODESELECTION", &Output_QVBCODEAREASELECTION, kDialog,
     "QVBarcodeAreaDefinitionStringValueUTF8", ""},
    {"QVOUTPUTPROFILESELECTION", &Output_QVOUTPUTPROFILESELECTION, kDialog,
     "QVOutputProfileSelectionStringValueUTF8", ""},
    {"QVGUTTERDISTANCE", &Output_QVGUTTERDISTANCE, kDialog, "QVGutterDistanceValue100", "0"},
    {"QVGUTTERDISTANCE", &Output_QVGUTTERDISTANCE, kPlain, "QVGutterDistance", "0"},
    {"QVBOOKLETGUTTERDISTANCE", &Output_QVBOOKLETGUTTERDISTANCE, kDialog,
     "QVBookletGutterDistanceValue100", "0"},
    {"QVBOOKLETGUTTERDISTANCE", &Output_QVBOOKLETGUTTERDISTANCE, kPlain, "QVBookletGutterDistance",
     "0"},
    {"QVFORMSELECT1", &Output_QVFORMSELECT1, kDialog, "QVFormSelect1StringValueUTF8", ""},
    {"QVFORMSELECT2", &Output_QVFORMSELECT2, kDialog, "QVFormSelect2StringValueUTF8", ""},
    {"PASSWORD", &Output_PASSWORD, kDialog, "QVSecretNumTextValue", ""},
    {"QVJOBCOMMENT", &Output_QVJOBCOMMENT, kDialog, "QVJobCommentTextValueUTF8", ""},
};
INSTANTIATE_TEST_SUITE_P(Header, CopyVariableLine, testing::ValuesIn(kCopies), caseName<CopyCase>);

}  // namespace
}  // namespace kelm::pjl
