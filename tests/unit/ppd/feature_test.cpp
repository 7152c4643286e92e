// The PPD's code lines against the feature writers: what becomes of each line in either kind of
// job.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "platform/fake/fake_platform.hpp"
#include "psrewrite/features.hpp"
#include "tests/support/memory_job.hpp"
#include "tests/unit/ppd/description.hpp"

namespace kelm::tests {
namespace {

using Options = TestJob::Options;

// The options with which a job of the maker's dialog puts VALUE into a feature's line.
struct DialogValue {
  std::string keyword;
  Options options;
};

const std::vector<DialogValue>& dialogValues() {
  static const std::vector<DialogValue> kValues = {
      {"QVPageNumStartNum", {{"QVPageNumStartNumValue", "VALUE"}}},
      {"QVPageNumStartPage", {{"QVPageNumStartPageValue", "VALUE"}}},
      {"QVStampPageFont", {{"QVStampPageFontNameStringValueUTF8", "VALUE"}}},
      {"QVStampPageSize", {{"QVStampPageSizeValue", "VALUE"}}},
      {"QVDateInfo", {{"QVDateInfoTextValueUTF8", "VALUE"}}},
      {"QVStampDateFont", {{"QVStampDateFontNameStringValueUTF8", "VALUE"}}},
      {"QVStampDateSize", {{"QVStampDateSizeValue", "VALUE"}}},
      {"QVImageShiftFrontV", {{"QVImageShiftFrontVValue100", "VALUE"}}},
      {"QVImageShiftFrontH", {{"QVImageShiftFrontHValue100", "VALUE"}}},
      {"QVImageShiftBackV", {{"QVImageShiftBackVValue100", "VALUE"}}},
      {"QVImageShiftBackH", {{"QVImageShiftBackHValue100", "VALUE"}}},
      {"QVTextInfo", {{"QVTextInfoTextValueUTF8", "VALUE"}}},
      {"QVStampTextFont", {{"QVStampTextFontNameStringValueUTF8", "VALUE"}}},
      {"QVStampTextSize", {{"QVStampTextSizeValue", "VALUE"}}},
      {"QVHeaderFooterPrint", {{"QVHeaderFooterPrintPSValue", "VALUE"}}},
      {"QVPageNumPrint", {{"QVPageNumPrintPSValue", "VALUE"}}},
      {"QVPageNumTransparent", {{"QVPageNumTransparentPSValue", "VALUE"}}},
      {"QVPageNumPosition", {{"QVPageNumPositionPSValue", "VALUE"}}},
      {"QVDatePrint", {{"QVDatePrintPSValue", "VALUE"}}},
      {"QVDateTransparent", {{"QVDateTransparentPSValue", "VALUE"}}},
      {"QVDateTargetPage", {{"QVDateTargetPagePSValue", "VALUE"}}},
      {"QVDateSpecify", {{"QVDateSpecifyPSValue", "VALUE"}}},
      {"QVDatePosition", {{"QVDatePositionPSValue", "VALUE"}}},
      {"QVTextPrint", {{"QVTextPrintPSValue", "VALUE"}}},
      {"QVTextTransparent", {{"QVTextTransparentPSValue", "VALUE"}}},
      {"QVTextTargetPage", {{"QVTextTargetPagePSValue", "VALUE"}}},
      {"QVTextPosition", {{"QVTextPositionPSValue", "VALUE"}}},
      {"QVGutterDistance", {{"QVGutterDistanceValue100", "VALUE"}}},
      {"QVBookletGutterDistance", {{"QVBookletGutterDistanceValue100", "VALUE"}}},
      {"QVGCCyan", {{"QVGCCyanStringValue", "VALUE"}}},
      {"QVGCMagenta", {{"QVGCMagentaStringValue", "VALUE"}}},
      {"QVGCYellow", {{"QVGCYellowStringValue", "VALUE"}}},
      {"QVGCBlack", {{"QVGCBlackStringValue", "VALUE"}}},
      {"QVGCGray", {{"QVGCGrayStringValue", "VALUE"}}},
      {"QVGCRed", {{"QVGCRedStringValue", "VALUE"}}},
      {"QVBarcodeSelection", {{"QVBarcodeAreaDefinitionStringValueUTF8", "VALUE"}}},
      {"QVBarcodeArea", {{"QVBarcodeAreaPSValue", "VALUE"}}},
      {"QVOutputProfileSelection", {{"QVOutputProfileSelectionStringValueUTF8", "VALUE"}}},
      {"QVZoomRate", {{"QVZoomRateTextValue", "VALUE"}}},
      {"QVManualZoom", {{"QVManualZoomPSValue", "VALUE"}}},
      {"QVTargetPaperSizeWidth", {{"QVTargetPaperSizeWidthValue100", "VALUE"}}},
      {"QVTargetPaperSizeHeight", {{"QVTargetPaperSizeHeightValue100", "VALUE"}}},
      {"QVPageTrayStandard", {{"QVPageTrayStandardTrayValue", "VALUE"}}},
      {"QVPageTrayTray1", {{"QVPageTrayTray1Value", "VALUE"}}},
      {"QVPageTrayTray2", {{"QVPageTrayTray2Value", "VALUE"}}},
      {"QVPageTrayTray3", {{"QVPageTrayTray3Value", "VALUE"}}},
      {"QVPageTrayExternalFeeder", {{"QVPageTrayExternalFeederValue", "VALUE"}}},
      {"QVPageTrayRepeat",
       {{"QVPageTrayRepeatButtonValue", "1"}, {"QVPageTrayRepeatTextValue", "VALUE"}}},
      {"QVPageTray", {{"QVPageTrayPSValue", "VALUE"}}},
      {"QVOutputBox", {{"QVPageOutputBoxPSValue", "VALUE"}}},
      {"QVOwnerName", {{"QVOwnerNamePSValue", "VALUE"}}},
      {"QVOwnerNameInfo", {{"QVOwnerName", "ON"}, {"QVOwnerNameTextValueUTF8", "VALUE"}}},
      {"QVJobName", {{"QVJobNamePSValue", "VALUE"}}},
      {"QVJobNameInfo", {{"QVJobName", "ON"}, {"QVJobNameTextValueUTF8", "VALUE"}}},
      {"QVSecretNum", {{"QVSecretNumPSValue", "VALUE"}}},
      {"QVSecretNumInfo", {{"QVSecretNumTextValue", "VALUE"}}},
      {"QVHideJob", {{"QVHideJobPSValue", "VALUE"}}},
      {"QVJobComment", {{"QVJobCommentTextValueUTF8", "VALUE"}}},
      {"QVFormSelect1", {{"QVFormSelect1StringValueUTF8", "VALUE"}}},
      {"QVFormSelect2", {{"QVFormSelect2StringValueUTF8", "VALUE"}}},
  };
  return kValues;
}

// Features whose line the dialog's value does not simply replace: two have their own tests here,
// and four pass through unchanged.
const std::vector<std::string> kOtherFeatures = {
    "QVOrientation",    "QVTargetPaperSize", "QVPAGESizeWidth",
    "QVPAGESizeHeight", "QVBarcodeDensity",  "QVBarcodeProof",
};

// A plain job loses the value lines of these features.
const std::vector<std::string> kDropped = {
    "QVPageNumStartNum",
    "QVPageNumStartPage",
    "QVStampPageFont",
    "QVStampPageSize",
    "QVPageNumPrint",
    "QVPageNumPosition",
    "QVPageNumTransparent",
    "QVDatePrint",
    "QVDateTransparent",
    "QVDateTargetPage",
    "QVDateSpecify",
    "QVDatePosition",
    "QVDateInfo",
    "QVStampDateFont",
    "QVStampDateSize",
    "QVTextPosition",
    "QVTextPrint",
    "QVTextTransparent",
    "QVTextTargetPage",
    "QVTextInfo",
    "QVStampTextFont",
    "QVStampTextSize",
    "QVHeaderFooterPrint",
    "QVPageTray",
    "QVPageTrayStandard",
    "QVPageTrayTray1",
    "QVPageTrayTray2",
    "QVPageTrayTray3",
    "QVPageTrayRepeat",
    "QVHideJob",
    "QVPageTrayExternalFeeder",
};
// A plain job keeps the value lines of these.
const std::vector<std::string> kKept = {
    "QVImageShiftFrontV", "QVImageShiftFrontH", "QVImageShiftBackV",
    "QVImageShiftBackH",  "QVGutterDistance",   "QVBookletGutterDistance",
    "QVGCCyan",           "QVGCMagenta",        "QVGCYellow",
    "QVGCBlack",          "QVGCGray",           "QVGCRed",
    "QVZoomRate",         "QVOutputBox",        "QVTargetPaperSize",
};

struct PlainValue {
  const char* keyword;
  Options options;
  const char* value;
};

// Options of a plain job and the value that they put in the place of XXX.
const std::vector<PlainValue>& plainValues() {
  static const std::vector<PlainValue> kValues = {
      {"QVBarcodeSelection", {{"QVBarcodeSelection", "Custom.Label"}}, "4C6162656C"},
      {"QVBarcodeArea", {{"QVBarcodeSelection", "Custom.Label"}}, "On"},
      {"QVOutputProfileSelection", {{"QVOutputProfileSelection", "Custom.My_1"}}, "4D795F31"},
      {"QVManualZoom", {{"QVZoomRate", "Custom.141"}}, "ON"},
      {"QVTargetPaperSizeWidth", {{"QVTargetPaperSize", "Naga4"}}, "9000"},
      {"QVTargetPaperSizeHeight", {{"QVTargetPaperSize", "Naga4"}}, "20500"},
      {"QVOwnerName", {{"QVOwnerNameInfo", "Custom.Ann"}}, "On"},
      {"QVOwnerNameInfo", {{"QVOwnerNameInfo", "Custom.Ann"}}, "416E6E"},
      {"QVJobName", {{"QVJobNameInfo", "Custom.Ann"}}, "On"},
      {"QVJobNameInfo", {{"QVJobNameInfo", "Custom.Ann"}}, "416E6E"},
      {"QVSecretNum", {{"QVSecretNumInfo", "Custom.4711"}}, "On"},
      {"QVSecretNumInfo", {{"QVSecretNumInfo", "Custom.4711"}}, "4711"},
      {"QVJobComment", {{"QVJobComment", "Custom.Hi"}}, "4869"},
      {"QVFormSelect1", {{"QVFormSelect1", "Custom.Ann"}}, "416E6E"},
      {"QVFormSelect2", {{"QVFormSelect2", "Custom.Ann"}}, "416E6E"},
  };
  return kValues;
}

std::string lineOf(const std::string& keyword, const std::string& value) {
  return "(" + value + ") userdict exch /" + keyword + " exch put\n";
}

// What the writer of a feature makes of `lines`.
std::string rewritten(const std::string& keyword, const Options& options,
                      const std::string& lines) {
  TestJob job(options, kDialogModel);
  MemorySource source(lines);
  MemoryOutput output;
  psrewrite::JobStream stream(source, output.stream());
  psrewrite::LineBuffer buffer;
  const auto writer =
      psrewrite::featureWriter(psrewrite::getFeature(("%BeginFeature: *" + keyword).c_str()));
  if (!writer) return "no writer";
  writer(stream, buffer, *job);
  return output.text();
}

// The lines that pstops writes for a choice. A custom value has a line before the code.
std::string linesOf(const Choice& choice, const std::string& typed) {
  return (choice.custom ? typed + "\n" : "") + choice.code + "\n";
}

const Option& optionOf(const Description& description, const std::string& keyword) {
  static const Option kNone;
  const Option* option = description.find(keyword);
  EXPECT_NE(nullptr, option) << keyword << " is missing in the PPD";
  return option == nullptr ? kNone : *option;
}

class FeatureSection : public testing::Test {
 protected:
  platform::FakePlatform platform_;
  Description description_;
};

TEST_F(FeatureSection, OfThisTestAreThoseOfTheProgram) {
  std::vector<std::string> here = kOtherFeatures;
  for (const DialogValue& value : dialogValues()) here.push_back(value.keyword);
  std::vector<std::string> program;
  for (const psrewrite::Feature& feature : psrewrite::features()) {
    program.push_back(feature.keyword);
  }
  EXPECT_THAT(here, testing::UnorderedElementsAreArray(program))
      << "add the dialog key of each feature section to dialogValues() in this file";

  std::vector<std::string> plain = {"QVOrientation", "QVPAGESizeWidth", "QVPAGESizeHeight",
                                    "QVBarcodeDensity", "QVBarcodeProof"};
  plain.insert(plain.end(), kDropped.begin(), kDropped.end());
  plain.insert(plain.end(), kKept.begin(), kKept.end());
  for (const PlainValue& value : plainValues()) plain.push_back(value.keyword);
  EXPECT_THAT(plain, testing::UnorderedElementsAreArray(program))
      << "add each feature section to kDropped, kKept or plainValues() in this file";
}

// The PPD names the dialog in the text of such an option, or in that of its group.
TEST_F(FeatureSection, DoesNothingInAPlainJobWhereThePpdNamesTheDialog) {
  std::vector<std::string> named;
  for (const ppd_group_t& group :
       std::span(description_.ppd()->groups, size_t(description_.ppd()->num_groups))) {
    for (const ppd_option_t& option : std::span(group.options, size_t(group.num_options))) {
      const std::string text = std::string(group.text) + option.text;
      if (text.find("(KELM dialog)") != std::string::npos) named.emplace_back(option.keyword);
    }
  }
  std::vector<std::string> idle;
  for (const psrewrite::Feature& feature : psrewrite::features()) {
    if (feature.dialogOnly()) idle.emplace_back(feature.keyword);
  }
  EXPECT_THAT(idle, testing::UnorderedElementsAreArray(named))
      << "ppd/kelm-ij-dialog.ppd: put \"(KELM dialog)\" into the text of such an option or of its "
         "group";
}

// Keywords are searched anywhere in the line, so a choice's name could be taken for one.
TEST_F(FeatureSection, IsFoundByItsOwnOpeningLineAndByNoOther) {
  for (const Option& option : description_.options()) {
    std::int32_t code = 0;
    for (const psrewrite::Feature& feature : psrewrite::features()) {
      if (feature.keyword == option.keyword) code = feature.code;
    }
    for (const Choice& choice : option.choices) {
      const std::string opened =
          choice.custom ? "Custom" + option.keyword + " True" : option.keyword + " " + choice.name;
      EXPECT_EQ(code, psrewrite::getFeature(("%BeginFeature: *" + opened + "\n").c_str()))
          << opened;
    }
  }
}

TEST_F(FeatureSection, TakesTheDialogsValueForEveryChoice) {
  for (const DialogValue& value : dialogValues()) {
    Options options = value.options;
    options.emplace_back("PrintPDE", "1");
    for (const Choice& choice : optionOf(description_, value.keyword).choices) {
      if (choice.custom) continue;  // the dialog sends no custom value
      EXPECT_EQ(lineOf(value.keyword, "VALUE"),
                rewritten(value.keyword, options, linesOf(choice, "")))
          << choice.name;
    }
  }
}

TEST_F(FeatureSection, OfTheTrayRepeatIsZeroWithoutTheDialogsButton) {
  const Choice& choice = optionOf(description_, "QVPageTrayRepeat").choices.at(0);
  EXPECT_EQ(lineOf("QVPageTrayRepeat", "0"),
            rewritten("QVPageTrayRepeat", {{"PrintPDE", "1"}}, linesOf(choice, "")));
}

TEST_F(FeatureSection, OfTheJobNameIsTheTitleWithoutTheDialogsText) {
  for (const Choice& choice : optionOf(description_, "QVJobNameInfo").choices) {
    if (choice.custom) continue;
    EXPECT_EQ(lineOf("QVJobNameInfo", ""),  // this record's title has no hex form
              rewritten("QVJobNameInfo", {{"PrintPDE", "1"}}, linesOf(choice, "")));
  }
}

TEST_F(FeatureSection, OfTheTargetPaperSaysCustomSizeForTheDialogsCustomSize) {
  for (const Choice& choice : optionOf(description_, "QVTargetPaperSize").choices) {
    EXPECT_EQ(lineOf("QVTargetPaperSize", "CustomSize"),
              rewritten("QVTargetPaperSize", {{"PrintPDE", "1"}, {"QVTargetPaperSize", "Custom"}},
                        linesOf(choice, "")));
  }
}

TEST_F(FeatureSection, OfTheOrientationFollowsTheJobInEitherKindOfJob) {
  for (const Choice& choice : optionOf(description_, "QVOrientation").choices) {
    for (const char* orientation : {"Portrait", "Landscape"}) {
      const Options plain = {{"QVOrientation", orientation}};
      const Options dialog = {{"QVOrientation", orientation}, {"PrintPDE", "1"}};
      EXPECT_EQ(lineOf("QVOrientation", orientation),
                rewritten("QVOrientation", plain, linesOf(choice, "")));
      EXPECT_EQ(lineOf("QVOrientation", orientation),
                rewritten("QVOrientation", dialog, linesOf(choice, "")));
    }
  }
}

TEST_F(FeatureSection, OfADialogSettingGoesInAPlainJob) {
  for (const std::string& keyword : kDropped) {
    for (const Choice& choice : optionOf(description_, keyword).choices) {
      EXPECT_EQ("", rewritten(keyword, {{keyword, choice.name}}, linesOf(choice, "5"))) << keyword;
    }
  }
}

TEST_F(FeatureSection, OfANumberOrAChoiceStaysInAPlainJob) {
  for (const std::string& keyword : kKept) {
    // These two writers leave the line to the copy loop.
    const bool left = keyword == "QVZoomRate" || keyword == "QVOutputBox";
    for (const Choice& choice : optionOf(description_, keyword).choices) {
      const std::string lines = linesOf(choice, "5");
      const std::string first = choice.custom ? "5\n" : lines;
      EXPECT_EQ(left ? "" : first, rewritten(keyword, {{keyword, choice.name}}, lines)) << keyword;
      EXPECT_THAT(lines, testing::Not(testing::HasSubstr("XXX"))) << keyword;
    }
  }
}

TEST_F(FeatureSection, TakesThePlainJobsValueForEveryChoice) {
  for (const PlainValue& value : plainValues()) {
    const bool typedHere = value.options.front().first == value.keyword;
    for (const Choice& choice : optionOf(description_, value.keyword).choices) {
      if (typedHere != choice.custom) continue;
      EXPECT_EQ(lineOf(value.keyword, value.value),
                rewritten(value.keyword, value.options, linesOf(choice, "(typed)")))
          << value.keyword;
    }
  }
}

TEST_F(FeatureSection, LeavesNoPlaceholderInAPlainJob) {
  using testing::HasSubstr;
  using testing::Not;
  for (const PlainValue& value : plainValues()) {
    for (const Choice& choice : optionOf(description_, value.keyword).choices) {
      if (choice.custom) continue;
      const std::string lines = linesOf(choice, "");
      for (const Options& options : {Options{}, Options{{value.keyword, choice.name}}}) {
        const std::string line = rewritten(value.keyword, options, lines);
        EXPECT_THAT(line, HasSubstr(") userdict exch /" + std::string(value.keyword)));
        EXPECT_THAT(line, Not(HasSubstr("XXX"))) << value.keyword;
      }
    }
  }
}

}  // namespace
}  // namespace kelm::tests
