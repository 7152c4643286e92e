// What the PPD says about the printer as a whole, and the group of each option.
// SPDX-License-Identifier: Apache-2.0
#include <cups/ppd.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/unit/ppd/description.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::tests {
namespace {

using testing::ElementsAre;

TEST(Printer, IsAColourPrinterOfLanguageLevelThree) {
  const Description description;
  EXPECT_EQ(3, description.ppd()->language_level);
  EXPECT_EQ(1, description.ppd()->color_device);
  EXPECT_STREQ("KELM IJ", description.ppd()->modelname);
}

// Unless "Collate" is True, pstops repeats the pages itself for copies in sets.
TEST(Printer, MakesAndSortsItsCopiesItself) {
  const Description description;
  EXPECT_EQ(0, description.ppd()->manual_copies);
  const Option* collate = description.find("Collate");
  ASSERT_NE(nullptr, collate);
  EXPECT_EQ("True", collate->defaultChoice);
}

TEST(Printer, HasItsStandardOptionsTurnedIntoItsOwn) {
  for (const char* model : {kDialogModel, kDefaultModel}) {
    const Description description(model);
    const ppd_attr_t* attribute = ppdFindAttr(description.ppd(), "KelmStandardOptions", nullptr);
    ASSERT_NE(nullptr, attribute) << model;
    EXPECT_STREQ("True", attribute->value);
  }
}

// The network backends would otherwise wait for ink levels with every job.
TEST(Printer, IsNotAskedForInk) {
  const Description description;
  const ppd_attr_t* supplies = ppdFindAttr(description.ppd(), "cupsSNMPSupplies", nullptr);
  ASSERT_NE(nullptr, supplies);
  EXPECT_STREQ("False", supplies->value);
}

// The choices of the printer's own that the attributes of this name mean: after the
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
  EXPECT_THAT(
      choicesMeantBy(description, "cupsIPPFinishings"),
      ElementsAre(
          "4 *QVStapleMode OneStaple", "5 *QVPunchMode TwoHoles", "8 *QVBookletBinding FoldStaple",
          "10 *QVFoldMode Fold2", "13 *QVBookletBinding FoldStaple", "20 *QVStapleMode Left1",
          "22 *QVStapleMode Right1", "28 *QVStapleMode TwoStaple", "50 *QVBinding Left",
          "51 *QVBinding Upper", "52 *QVBinding Right", "74 *QVPunchMode TwoHoles",
          "78 *QVPunchMode ThreeHoles", "82 *QVPunchMode FourHoles", "93 *QVFoldMode Fold2",
          "94 *QVFoldMode ZFold", "96 *QVFoldMode FoldInner3", "100 *QVFoldMode FoldOuter3"));
  EXPECT_THAT(
      choicesMeantBy(description, "APPrinterPreset"),
      ElementsAre("ColorDraft *ColorModel CMYK *QVImageQuality Draft", "Color *ColorModel CMYK",
                  "ColorFine *ColorModel CMYK *QVImageQuality Fine",
                  "GrayDraft *ColorModel Gray *QVImageQuality Draft", "Gray *ColorModel Gray",
                  "GrayFine *ColorModel Gray *QVImageQuality Fine"));
}

TEST(Filter, TakesPostScriptOfPstopsAtNoCost) {
  const Description description;
  EXPECT_THAT(std::span(description.ppd()->filters, std::size_t(description.ppd()->num_filters)),
              ElementsAre(testing::StrEq("application/vnd.cups-postscript 0 kelmfilter")));
}

// The papers are the first two options of General, which libcups makes for all without a group.
// GTK's dialog shows the groups FPFinishing1 to 4 and FinishingPage on its tab "Finishing", those
// of FPImageQuality1 to 3 on "Image Quality" and FPColorWise1 on "Color". The others, except
// InstallableOptions, are on "Advanced", so they may only hold what people need.
using Groups = std::vector<std::pair<std::string, std::vector<std::string>>>;

Groups groupsOf(const Description& description) {
  Groups found;
  for (const ppd_group_t& group :
       std::span(description.ppd()->groups, std::size_t(description.ppd()->num_groups))) {
    found.emplace_back(group.name, std::vector<std::string>());
    for (const ppd_option_t& option : std::span(group.options, std::size_t(group.num_options))) {
      found.back().second.emplace_back(option.keyword);
    }
  }
  return found;
}

const Groups kDefaultGroups = {
    {"General",
     {"PageSize", "PageRegion", "Duplex", "InputSlot", "MediaType", "ColorModel", "OutputBin",
      "Collate"}},
    {"FPFinishing1",
     {"QVStapleMode", "QVPunchMode", "QVFoldMode", "QVFoldInnerOuter", "QVFoldBinding",
      "QVBookletBinding", "QVBookletSplitting", "QVBookletCover", "QVBookletCoverSheetTray",
      "QVWaitingExceptCover"}},
    {"FinishingPage",
     {"QVMultiUp", "QVBooklet", "QVTargetPaperSize", "QVZoomRate", "QVOrientation", "QVRotate",
      "QVMultiUpSinglePage"}},
    {"FPFinishing4",
     {"QVOutputFace", "QVJog", "QVReverseOrder", "QVContinuousOutput", "QVCarbonCopy",
      "QVCarbonCopyPriority1", "QVCarbonCopyPriority2", "QVCarbonCopyPriority3",
      "QVCarbonCopyPriority4"}},
    {"FPImageQuality1",
     {"QVImageQuality", "QVDitherType", "QVPrintDensity", "QVPrintSpeed", "QVLineSmoothing",
      "QVScreening", "QVMaxDrops", "QVEnvelopeImageProcessing", "QVBarcodeSelection",
      "QVBarcodeDensity", "QVBarcodeProof"}},
    {"FPColorWise1",
     {"QVOutputMode", "QVGCBrightness", "QVGCContrast", "QVGCCyan", "QVGCMagenta", "QVGCYellow",
      "QVGCBlack", "QVGCGray", "QVGCRed", "QVGammaAdjustment", "QVColorProfile",
      "QVOutputProfileSelection", "QVRenderingIntent"}},
    {"Job",
     {"QVSecretNumInfo", "QVWaitAfterProof", "QVOutputMethod", "QVOutputBox", "QVJobNameInfo",
      "QVOwnerNameInfo", "QVJobComment", "QVCollate"}},
    {"FPFinishing2",
     {"QVBinding", "QVGutter", "QVGutterDistance", "QVGutterAutoReducing", "QVBookletGutter",
      "QVBookletGutterDistance", "QVBookletGutterAutoReducing"}},
    {"FPFinishing3",
     {"QVCoverSheet", "QVFrontCoverSheet", "QVFrontCoverSheetTray", "QVBackCoverSheet",
      "QVBackCoverSheetTray", "QVJobSepSheet", "QVJobSepSheetTray", "QVJobSepSheetText"}},
    {"FPImageQuality2",
     {"QVImageShift", "QVImageShiftFrontV", "QVImageShiftFrontH", "QVImageShiftBackV",
      "QVImageShiftBackH"}},
    {"FPImageQuality3",
     {"QVForm", "QVFormPattern", "QVFormSurface", "QVFormSeparate", "QVFormSelect1",
      "QVFormSelect2", "QVPriorityLayer"}},
    {"InstallableOptions",
     {"QVTargetPaperSizeWidth", "QVTargetPaperSizeHeight", "QVPAGESizeWidth", "QVPAGESizeHeight",
      "QVManualZoom", "QVBarcodeArea", "QVSecretNum", "QVJobName", "QVOwnerName", "QVDuplex",
      "QVInputSlot", "QVMediaType", "QVOutputTray"}},
};

TEST(Groups, OfTheDefaultModelAreThoseThatAPersonLooksFor) {
  EXPECT_EQ(kDefaultGroups, groupsOf(Description(kDefaultModel)));
}

// These options repeat a standard option; the default model leaves them out of dialogs.
TEST(Overrides, AreInAGroupOfTheirOwnInTheDialogModel) {
  const Groups groups = groupsOf(Description(kDialogModel));
  EXPECT_EQ(
      (Groups::value_type{"Overrides", {"QVDuplex", "QVInputSlot", "QVMediaType", "QVOutputTray"}}),
      groups.back());
}

// CUPS writes sections of the same number in any order. Of PageSize and PageRegion, a job has only
// one.
TEST(OrderDependency, IsAnotherForEachOption) {
  const Description description;
  std::map<float, std::string> options;
  for (const ppd_group_t& group :
       std::span(description.ppd()->groups, std::size_t(description.ppd()->num_groups))) {
    for (const ppd_option_t& option : std::span(group.options, std::size_t(group.num_options))) {
      if (std::string_view(option.keyword) == "PageRegion") continue;
      const auto [other, isNew] = options.emplace(option.order, option.keyword);
      EXPECT_TRUE(isNew) << option.keyword << " has the OrderDependency of " << other->second
                         << " in ppd/kelm-ij-dialog.ppd";
    }
  }
}

std::set<std::string> optionsIn(const Groups& groups) {
  std::set<std::string> options;
  for (const auto& [name, members] : groups) options.insert(members.begin(), members.end());
  return options;
}

// The options that take effect only in jobs of the KELM dialog.
TEST(Groups, OfTheDialogModelHaveTheStampsAndTheTraysOfPagesToo) {
  const std::set<std::string> plain = optionsIn(kDefaultGroups);
  std::set<std::string> dialog = optionsIn(groupsOf(Description(kDialogModel)));
  for (const std::string& option : plain) EXPECT_EQ(1U, dialog.erase(option)) << option;
  const std::set<std::string> expected = {
      "QVPageTray",        "QVPageTrayStandard",       "QVPageTrayTray1",   "QVPageTrayTray2",
      "QVPageTrayTray3",   "QVPageTrayExternalFeeder", "QVPageTrayRepeat",  "QVHeaderFooterPrint",
      "QVPageNumPrint",    "QVPageNumTransparent",     "QVPageNumStartNum", "QVPageNumStartPage",
      "QVPageNumPosition", "QVStampPageFont",          "QVStampPageSize",   "QVDatePrint",
      "QVDateTransparent", "QVDateTargetPage",         "QVDateSpecify",     "QVDateInfo",
      "QVDatePosition",    "QVStampDateFont",          "QVStampDateSize",   "QVTextPrint",
      "QVTextTransparent", "QVTextTargetPage",         "QVTextInfo",        "QVTextPosition",
      "QVStampTextFont",   "QVStampTextSize",          "QVHideJob"};
  EXPECT_EQ(expected, dialog);
}

// Except for the groups, an option is the same in both models.
TEST(Models, HaveTheSameChoicesAndCode) {
  const Description dialog(kDialogModel);
  const Description plain(kDefaultModel);
  ASSERT_FALSE(plain.options().empty());
  for (const Option& option : plain.options()) {
    const Option* other = dialog.find(option.keyword);
    ASSERT_NE(nullptr, other) << option.keyword;
    EXPECT_EQ(other->defaultChoice, option.defaultChoice) << option.keyword;
    ASSERT_EQ(other->choices.size(), option.choices.size()) << option.keyword;
    for (std::size_t i = 0; i < option.choices.size(); ++i) {
      EXPECT_EQ(other->choices[i].name, option.choices[i].name) << option.keyword;
      EXPECT_EQ(other->choices[i].code, option.choices[i].code) << option.keyword;
    }
  }
}

TEST(Models, HaveNamesOfTheirOwn) {
  EXPECT_STREQ("KELM IJ PostScript", Description(kDefaultModel).ppd()->nickname);
  EXPECT_STREQ("KELM IJ PostScript, for jobs of the KELM dialog",
               Description(kDialogModel).ppd()->nickname);
}

// In points: 90 to 550 mm wide and high.
TEST(CustomPaper, HasTheLimitsOfThePrinter) {
  const Description description;
  const ppd_file_t* ppd = description.ppd();
  EXPECT_THAT(ppd->custom_min, ElementsAre(255, 255));
  EXPECT_THAT(ppd->custom_max, ElementsAre(1559, 1559));
  EXPECT_THAT(ppd->custom_margins, ElementsAre(8.5, 8.5, 8.5, 8.5));
}

}  // namespace
}  // namespace kelm::tests
