// What the PPD says of the printer as a whole, and where a person finds its options.
// SPDX-License-Identifier: Apache-2.0
#include <cups/ppd.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <span>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/unit/ppd/description.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::tests {
namespace {

using testing::ElementsAre;
using testing::Pair;

TEST(Printer, IsAColourPrinterOfLanguageLevelThree) {
  const Description description;
  EXPECT_EQ(3, description.ppd()->language_level);
  EXPECT_EQ(1, description.ppd()->color_device);
  EXPECT_STREQ("KELM IJ", description.ppd()->modelname);
}

// pstops sends the pages of copies in sets several times over unless "Collate" is chosen.
TEST(Printer, MakesAndSortsItsCopiesItself) {
  const Description description;
  EXPECT_EQ(0, description.ppd()->manual_copies);
  const Option* collate = description.find("Collate");
  ASSERT_NE(nullptr, collate);
  EXPECT_EQ("True", collate->defaultChoice);
  ASSERT_EQ(1U, collate->choices.size());
  EXPECT_EQ("True", collate->choices[0].name);
  EXPECT_EQ("", collate->choices[0].code);
}

// The network backends would otherwise wait for ink levels with every job.
TEST(Printer, IsNotAskedForInk) {
  const Description description;
  const ppd_attr_t* supplies = ppdFindAttr(description.ppd(), "cupsSNMPSupplies", nullptr);
  ASSERT_NE(nullptr, supplies);
  EXPECT_STREQ("False", supplies->value);
}

// The choices of the printer's own that the attributes of this name stand for: behind the
// attribute's first word, options and choices.
std::vector<std::string> choicesMeantBy(const Description& description, const char* name) {
  std::vector<std::string> meant;
  for (const ppd_attr_t* attribute = ppdFindAttr(description.ppd(), name, nullptr);
       attribute != nullptr; attribute = ppdFindNextAttr(description.ppd(), name, nullptr)) {
    std::istringstream words(attribute->value);
    std::string text = attribute->spec;
    for (std::string option, choice; words >> option >> choice;) {
      if (!option.starts_with('*')) continue;
      const Option* own = description.find(option.substr(1));
      EXPECT_TRUE(own != nullptr && own->hasChoice(choice)) << option << " " << choice;
      text += " " + option + " " + choice;
    }
    meant.push_back(text);
  }
  return meant;
}

TEST(Requests, OfEveryPrinterMeanChoicesOfThisOne) {
  const Description description;
  EXPECT_THAT(choicesMeantBy(description, "cupsIPPFinishings"),
              ElementsAre("4 *QVStapleMode OneStaple", "5 *QVPunchMode TwoHoles",
                          "10 *QVFoldMode Fold2", "28 *QVStapleMode TwoStaple"));
  EXPECT_THAT(choicesMeantBy(description, "APPrinterPreset"),
              ElementsAre("Black *QVOutputMode Black"));
}

TEST(Filter, TakesPostScriptOfPstopsAtNoCost) {
  const Description description;
  EXPECT_THAT(std::span(description.ppd()->filters, std::size_t(description.ppd()->num_filters)),
              ElementsAre(testing::StrEq("application/vnd.cups-postscript 0 kelmfilter")));
}

// The papers are the first two options of General, which libcups makes for all without a group.
TEST(Groups, AreThoseThatAPersonLooksFor) {
  const Description description;
  std::vector<std::pair<std::string, std::vector<std::string>>> found;
  for (const ppd_group_t& group :
       std::span(description.ppd()->groups, std::size_t(description.ppd()->num_groups))) {
    found.emplace_back(group.name, std::vector<std::string>());
    for (const ppd_option_t& option : std::span(group.options, std::size_t(group.num_options))) {
      found.back().second.emplace_back(option.keyword);
    }
  }
  EXPECT_THAT(
      found,
      ElementsAre(
          Pair("General", ElementsAre("PageSize", "PageRegion", "QVDuplex", "QVOrientation",
                                      "Collate", "QVCollate", "QVWaitAfterProof", "QVPrintSpeed")),
          Pair("Paper",
               ElementsAre("QVMediaType", "QVInputSlot", "QVTargetPaperSize",
                           "QVTargetPaperSizeWidth", "QVTargetPaperSizeHeight", "QVPAGESizeWidth",
                           "QVPAGESizeHeight", "QVPageTray", "QVPageTrayStandard",
                           "QVPageTrayTray1", "QVPageTrayTray2", "QVPageTrayTray3",
                           "QVPageTrayExternalFeeder", "QVPageTrayRepeat")),
          Pair("Layout",
               ElementsAre("QVManualZoom", "QVZoomRate", "QVMultiUp", "QVMultiUpSinglePage",
                           "QVBooklet", "QVRotate", "QVImageShift", "QVImageShiftFrontV",
                           "QVImageShiftFrontH", "QVImageShiftBackV", "QVImageShiftBackH",
                           "QVBinding", "QVGutter", "QVGutterDistance", "QVGutterAutoReducing",
                           "QVBookletGutter", "QVBookletGutterDistance",
                           "QVBookletGutterAutoReducing")),
          Pair("Stamps",
               ElementsAre("QVHeaderFooterPrint", "QVPageNumPrint", "QVPageNumTransparent",
                           "QVPageNumStartNum", "QVPageNumStartPage", "QVPageNumPosition",
                           "QVStampPageFont", "QVStampPageSize", "QVDatePrint", "QVDateTransparent",
                           "QVDateTargetPage", "QVDateSpecify", "QVDateInfo", "QVDatePosition",
                           "QVStampDateFont", "QVStampDateSize", "QVTextPrint", "QVTextTransparent",
                           "QVTextTargetPage", "QVTextInfo", "QVTextPosition", "QVStampTextFont",
                           "QVStampTextSize")),
          Pair("Quality",
               ElementsAre("QVOutputMode", "QVImageQuality", "QVDitherType", "QVPrintDensity",
                           "QVLineSmoothing", "QVScreening", "QVEnvelopeImageProcessing",
                           "QVGammaAdjustment", "QVGCBrightness", "QVGCContrast", "QVGCCyan",
                           "QVGCMagenta", "QVGCYellow", "QVGCBlack", "QVGCGray", "QVGCRed",
                           "QVColorProfile", "QVOutputProfileSelection", "QVRenderingIntent",
                           "QVMaxDrops", "QVBarcodeArea", "QVBarcodeSelection", "QVBarcodeDensity",
                           "QVBarcodeProof")),
          Pair("Finishing",
               ElementsAre("QVStapleMode", "QVPunchMode", "QVFoldMode", "QVFoldInnerOuter",
                           "QVFoldBinding", "QVBookletBinding", "QVBookletSplitting",
                           "QVBookletCover", "QVBookletCoverSheetTray", "QVWaitingExceptCover")),
          Pair("Output",
               ElementsAre("QVOutputMethod", "QVOutputBox", "QVOutputTray", "QVOutputFace",
                           "QVContinuousOutput", "QVReverseOrder", "QVJog", "QVJobSepSheet",
                           "QVJobSepSheetTray", "QVJobSepSheetText", "QVCoverSheet",
                           "QVFrontCoverSheet", "QVFrontCoverSheetTray", "QVBackCoverSheet",
                           "QVBackCoverSheetTray", "QVCarbonCopy", "QVCarbonCopyPriority1",
                           "QVCarbonCopyPriority2", "QVCarbonCopyPriority3",
                           "QVCarbonCopyPriority4")),
          Pair("FormsAndJob",
               ElementsAre("QVForm", "QVFormPattern", "QVFormSurface", "QVFormSeparate",
                           "QVFormSelect1", "QVFormSelect2", "QVPriorityLayer", "QVOwnerName",
                           "QVOwnerNameInfo", "QVJobName", "QVJobNameInfo", "QVSecretNum",
                           "QVSecretNumInfo", "QVHideJob", "QVJobComment"))));
}

// In points: 90 to 550 mm either way.
TEST(CustomPaper, HasTheLimitsOfThePrinter) {
  const Description description;
  const ppd_file_t* ppd = description.ppd();
  EXPECT_THAT(ppd->custom_min, ElementsAre(255, 255));
  EXPECT_THAT(ppd->custom_max, ElementsAre(1559, 1559));
  EXPECT_THAT(ppd->custom_margins, ElementsAre(8.5, 8.5, 8.5, 8.5));
}

}  // namespace
}  // namespace kelm::tests
