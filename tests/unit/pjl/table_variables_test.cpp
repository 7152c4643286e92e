// Every variable with a table of values: with each choice, an unknown one, and without the option.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "pjl/finishing_variables.hpp"
#include "pjl/paper_variables.hpp"
#include "pjl/quality_variables.hpp"
#include "tests/support/expected_papers.hpp"
#include "tests/unit/pjl/lines.hpp"

namespace kelm::pjl {
namespace {

using Rows = std::vector<std::pair<std::string, std::string>>;

struct TableCase {
  std::string name;  // of the PJL variable
  HeaderStep variable;
  JobKind kind;
  std::string option;
  Rows rows;
  std::string absent;
  Options others = {};  // the job's other options
};

void PrintTo(const TableCase& table, std::ostream* out) { *out << table.name; }

class TableVariableLine : public testing::TestWithParam<TableCase> {
 protected:
  // Checks the line for the kinds of jobs of this case.
  static void expectValue(const Options& chosen, const std::string& value) {
    const TableCase& table = GetParam();
    const std::string line = "@PJL SET " + table.name + "=" + value + "\n";
    Options options = table.others;
    options.insert(options.end(), chosen.begin(), chosen.end());
    expectLine(table.variable, table.kind, options, line);
  }
};

TEST_P(TableVariableLine, HasTheValueOfEveryChoice) {
  for (const auto& [choice, value] : GetParam().rows) {
    SCOPED_TRACE(choice);
    expectValue({{GetParam().option, choice}}, value);
  }
}

// The choices of a variable's table; none for a variable with logic of its own.
std::set<std::string> choicesOf(const TableVariable& variable, JobKind /*kind*/) {
  std::set<std::string> choices;
  for (const ValueRow& row : variable.table.rows) {
    if (row.key != nullptr) choices.insert(row.key);
  }
  return choices;
}
std::set<std::string> choicesOf(const DialogOrPlain<TableVariable>& variable, JobKind kind) {
  return choicesOf(kind == kDialog ? variable.dialog : variable.plain, kind);
}
template <class Variable>
std::set<std::string> choicesOf(const Variable& /*variable*/, JobKind /*kind*/) {
  return {};
}

TEST_P(TableVariableLine, HasEveryChoiceOfItsTableInItsCase) {
  std::set<std::string> choices =
      std::visit([](const auto* variable) { return choicesOf(*variable, GetParam().kind); },
                 GetParam().variable);
  for (const auto& [choice, value] : GetParam().rows) choices.erase(choice);
  EXPECT_EQ(choices, std::set<std::string>()) << "this file lacks these choices";
}

TEST_P(TableVariableLine, IsEmptyForAnUnknownChoice) {
  expectValue({{GetParam().option, "Nonsense"}}, "");
  expectValue({{GetParam().option, ""}}, "");
}

TEST_P(TableVariableLine, HasItsDefaultWithoutTheOption) { expectValue({}, GetParam().absent); }

const Rows kDigits = {{"0", "OFF"}, {"1", "ON"}};
const Rows kWords = {{"OFF", "OFF"}, {"ON", "ON"}};
const Rows kTruths = {{"False", "OFF"}, {"True", "ON"}, {"false", "OFF"}, {"true", "ON"}};
const Rows kDensities = {{"Minus3", "-3"}, {"Minus2", "-2"}, {"Minus1", "-1"}, {"Standard", "0"},
                         {"Plus1", "1"},   {"Plus2", "2"},   {"Plus3", "3"}};
const Rows kTargetPages = {{"FullPage", "FULLPAGE"}, {"FirstPage", "1STPAGE"}};
const Rows kPositions = {{"TopLeft", "TOPLEFT"},           {"TopCenter", "TOPCENTER"},
                         {"TopRight", "TOPRIGHT"},         {"BottomLeft", "BOTTOMLEFT"},
                         {"BottomCenter", "BOTTOMCENTER"}, {"BottomRight", "BOTTOMRIGHT"}};
const Rows kFiveTrays = {{"Tray1", "TRAY1"},
                         {"Tray2", "TRAY2"},
                         {"Tray3", "TRAY3"},
                         {"Standard", "STANDARD"},
                         {"HighCapacityFeeder", "HICAPACITYFEEDER"}};
const Rows kSixTrays = {{"Tray1", "TRAY1"},
                        {"Tray2", "TRAY2"},
                        {"Tray3", "TRAY3"},
                        {"Standard", "STANDARD"},
                        {"HighCapacityFeeder", "HICAPACITYFEEDER"},
                        {"ExternalFeeder", "EXTERNALFEEDER"}};
const Rows kPriorities = {{"NoUse", "NOUSE"},
                          {"Standard", "STANDARD"},
                          {"HighCapacityFeeder", "HICAPACITYFEEDER"},
                          {"ExternalFeeder", "EXTERNALFEEDER"},
                          {"Tray1", "TRAY1"},
                          {"Tray2", "TRAY2"},
                          {"Tray3", "TRAY3"}};
const Rows kBindingSides = {
    {"Left", "LEFTBINDING"}, {"Right", "RIGHTBINDING"}, {"Upper", "TOPBINDING"}};

// One value of every paper.
Rows ofPapers(const char* tests::ExpectedPaper::*value) {
  Rows rows;
  for (const tests::ExpectedPaper& paper : tests::kExpectedPapers) {
    rows.emplace_back(paper.choice, paper.*value);
  }
  return rows;
}

Rows with(Rows rows, const Rows& more) {
  rows.insert(rows.end(), more.begin(), more.end());
  return rows;
}

const Rows kPapers = ofPapers(&tests::ExpectedPaper::pjlName);
// "tabloid" is a name of QVPAGESIZE and of "media", not of a paper.
const Rows kWidths = with(ofPapers(&tests::ExpectedPaper::width), {{"tabloid", ""}});
const Rows kHeights = with(ofPapers(&tests::ExpectedPaper::height), {{"tabloid", ""}});

constexpr char kPaperOption[] = "com.apple.print.PageToPaperMappingMediaName";
const Options kStackerChosen = {{"QVOutputTray", "Stacker"}};

const TableCase kPaperAndTrays[] = {
    {"QVMANUALZOOM", &Output_QVMANUALZOOM, kDialog, "QVZoomRateValue", kDigits, "OFF"},
    {"MEDIATYPE",
     &Output_MEDIATYPE,
     kBoth,
     "QVMediaType",
     {{"Any", "AUTO"},
      {"Plain", "STANDARD"},
      {"IJPaper", "HC"},
      {"MattCoated", "HCMATTED"},
      {"HighQuality", "HIGHQUALITY2"},
      {"CardIJ", "POSTCARDJ"},
      {"IJLight", "LIGHT"},
      {"CrimpedPaper", "CRIMPED"}},
     "AUTO"},
    {"QVOUTPUTMODE",
     &Output_OUTPUTMODE,
     kBoth,
     "QVOutputMode",
     {{"Auto", "AUTO"},
      {"FiveColor", "FIVECOLOR"},
      {"Black", "GRAYSCALE"},
      {"Cyan", "CYAN"},
      {"Magenta", "MAGENTA"},
      {"Blue", "BLUE"},
      {"DualColor", "DUAL"},
      {"Red", "RED"},
      {"Vermilion", "DUAL"}},
     "AUTO"},
    {"DUPLEX",
     &Output_DUPLEX,
     kBoth,
     "QVDuplex",
     {{"OFF", "OFF"}, {"LongEdge", "ON"}, {"ShortEdge", "ON"}},
     "ON"},
    {"BINDING",
     &Output_BINDING,
     kBoth,
     "QVDuplex",
     {{"OFF", "OFF"}, {"LongEdge", "LONGEDGE"}, {"ShortEdge", "SHORTEDGE"}},
     "LONGEDGE"},
    {"QVWAITAFTERPROOF", &Output_QVWAITAFTERPROOF, kDialog, "QVWaitAfterProofValue", kDigits,
     "OFF"},
    {"QVWAITAFTERPROOF", &Output_QVWAITAFTERPROOF, kPlain, "QVWaitAfterProof", kTruths, "OFF"},
    {"QVPAGESIZE", &Output_QVPAGESIZE, kBoth, kPaperOption, with(kPapers, {{"tabloid", "TABLOID"}}),
     "A4"},
    {"QVPAGESIZEWIDTH", &Output_QVPAGESIZEWIDTH, kPlain, kPaperOption, kWidths, "21000"},
    {"QVPAGESIZEHEIGHT", &Output_QVPAGESIZEHEIGHT, kPlain, kPaperOption, kHeights, "29700"},
    {"ORIENTATION",
     &Output_ORIENTATION,
     kBoth,
     "QVOrientation",
     {{"0", "PORTRAIT"}, {"1", "LANDSCAPE"}, {"Portrait", "PORTRAIT"}, {"Landscape", "LANDSCAPE"}},
     "PORTRAIT"},
    {"PAPER", &Output_PAPER, kBoth, "QVTargetPaperSize",
     with({{"SameAsOriginal", "AUTO"}, {"tabloid", ""}}, kPapers), "AUTO"},
    {"QVTARGETPAPERSIZEWIDTH", &Output_QVTARGETPAPERSIZEWIDTH, kPlain, "QVTargetPaperSize", kWidths,
     "21000"},
    {"QVTARGETPAPERSIZEHEIGHT", &Output_QVTARGETPAPERSIZEHEIGHT, kPlain, "QVTargetPaperSize",
     kHeights, "29700"},
    {"AUTOSELECT",
     &Output_AUTOSELECT,
     kBoth,
     "QVInputSlot",
     {{"Auto", "ON"},
      {"FeedTray1", "OFF"},
      {"FeedTray2", "OFF"},
      {"FeedTray3", "OFF"},
      {"StandardTray", "OFF"},
      {"HighCapacityFeeder", "OFF"},
      {"ExternalFeeder", "OFF"}},
     "ON"},
    {"MEDIASOURCE",
     &Output_MEDIASOURCE,
     kBoth,
     "QVInputSlot",
     {{"Auto", "AUTO"},
      {"FeedTray1", "TRAY1"},
      {"FeedTray2", "TRAY2"},
      {"FeedTray3", "TRAY3"},
      {"StandardTray", "STANDARD"},
      {"HighCapacityFeeder", "HICAPACITYFEEDER"},
      {"ExternalFeeder", "EXTERNALFEEDER"}},
     "AUTO"},
    {"QVOUTPUTMETHOD",
     &Output_QVOUTPUTMETHOD,
     kBoth,
     "QVOutputMethod",
     {{"Print", "PRINT"},
      {"SaveToFolder", "BOX"},
      {"Form", "FORM"},
      {"PrintAndSave", "PRINTANDBOX"}},
     "PRINT"},
    {"QVPAGETRAY", &Output_QVPAGETRAY, kBoth, "QVPageTray", kWords, "OFF"},
};
INSTANTIATE_TEST_SUITE_P(PaperAndTrays, TableVariableLine, testing::ValuesIn(kPaperAndTrays),
                         caseName<TableCase>);

const TableCase kLayoutAndStamps[] = {
    {"QVMULTIUP",
     &Output_QVMULTIUP,
     kBoth,
     "QVMultiUp",
     {{"OFF", "OFF"},
      {"2PagesLeftRight", "2PAGESLEFTRIGHT"},
      {"2PagesRightLeft", "2PAGESRIGHTLEFT"},
      {"4PagesLeftTopRight", "4PAGESLEFTTOPRIGHT"},
      {"4PagesLeftTopBottom", "4PAGESLEFTTOPBOTTOM"},
      {"4PagesRightTopLeft", "4PAGESRIGHTTOPLEFT"},
      {"4PagesRightTopBottom", "4PAGESRIGHTTOPBOTTOM"},
      {"8PagesLeftTopRight", "8PAGESLEFTTOPRIGHT"},
      {"8PagesLeftTopBottom", "8PAGESLEFTTOPBOTTOM"},
      {"8PagesRightTopLeft", "8PAGESRIGHTTOPLEFT"},
      {"8PagesRightTopBottom", "8PAGESRIGHTTOPBOTTOM"}},
     "OFF"},
    {"QVMULTIUPSINGLEPAGE",
     &Output_QVMULTIUPSINGLEPAGE,
     kBoth,
     "QVMultiUpSinglePage",
     {{"OFF", "1"}, {"2Pages", "2"}, {"4Pages", "4"}, {"8Pages", "8"}},
     "1"},
    {"QVBOOKLET",
     &Output_QVBOOKLET,
     kBoth,
     "QVBooklet",
     {{"OFF", "OFF"},
      {"LeftBinding", "LEFTBINDING"},
      {"RightBinding", "RIGHTBINDING"},
      {"TopBinding", "TOPBINDING"}},
     "OFF"},
    {"QVHEADERFOOTERPRINT", &Output_QVHEADERFOOTERPRINT, kBoth, "QVHeaderFooterPrintValue", kDigits,
     "OFF"},
    {"QVPAGENUMPRINT", &Output_QVPAGENUMPRINT, kBoth, "QVPageNumPrintValue", kDigits, "OFF"},
    {"QVPAGENUMTRANSPARENT", &Output_QVPAGENUMTRANSPARENT, kBoth, "QVPageNumTransparentValue",
     kDigits, "OFF"},
    {"QVPAGENUMPOSITION", &Output_QVPAGENUMPOSITION, kBoth, "QVPageNumPosition", kPositions,
     "TOPLEFT"},
    {"QVDATEPRINT", &Output_QVDATEPRINT, kBoth, "QVDatePrintValue", kDigits, "OFF"},
    {"QVDATETRANSPARENT", &Output_QVDATETRANSPARENT, kBoth, "QVDateTransparentValue", kDigits,
     "OFF"},
    {"QVDATETARGETPAGE", &Output_QVDATETARGETPAGE, kBoth, "QVDateTargetPage", kTargetPages,
     "FULLPAGE"},
    {"QVDATESPECIFY",
     &Output_QVDATESPECIFY,
     kBoth,
     "QVDateSpecify",
     {{"Today", "TODAY"}, {"Custom", "CUSTOM"}},
     "TODAY"},
    {"QVDATEPOSITION", &Output_QVDATEPOSITION, kBoth, "QVDatePosition", kPositions, "TOPLEFT"},
    {"QVIMAGESHIFT", &Output_QVIMAGESHIFT, kDialog, "QVImageShiftValue", kDigits, "OFF"},
    {"QVIMAGESHIFT", &Output_QVIMAGESHIFT, kPlain, "QVImageShift", kTruths, "OFF"},
    {"QVROTATE",
     &Output_QVROTATE,
     kBoth,
     "QVRotate",
     {{"Auto", "AUTO"},
      {"degree0", "0"},
      {"degree90", "90"},
      {"degree180", "180"},
      {"degree270", "270"}},
     "AUTO"},
    {"QVTEXTPRINT", &Output_QVTEXTPRINT, kBoth, "QVTextPrintValue", kDigits, "OFF"},
    {"QVTEXTTRANSPARENT", &Output_QVTEXTTRANSPARENT, kBoth, "QVTextTransparentValue", kDigits,
     "OFF"},
    {"QVTEXTTARGETPAGE", &Output_QVTEXTTARGETPAGE, kBoth, "QVTextTargetPage", kTargetPages,
     "FULLPAGE"},
    {"QVTEXTPOSITION", &Output_QVTEXTPOSITION, kBoth, "QVTextPosition", kPositions, "TOPLEFT"},
};
INSTANTIATE_TEST_SUITE_P(LayoutAndStamps, TableVariableLine, testing::ValuesIn(kLayoutAndStamps),
                         caseName<TableCase>);

const TableCase kQuality[] = {
    {"QVDITHERTYPE",
     &Output_QVDITHERTYPE,
     kBoth,
     "QVDitherType",
     {{"PhotoDoc", "PHOTODOC"}, {"OfficeDoc", "PHOTO"}, {"LineDoc", "TEXT"}},
     "PHOTO"},
    {"QVPRINTDENSITY", &Output_QVPRINTDENSITY, kBoth, "QVPrintDensity", kDensities, "0"},
    {"QVIMAGEQUALITY",
     &Output_QVRESOLUTION,
     kBoth,
     "QVImageQuality",
     {{"Draft", "DRAFT"},
      {"Standard", "STANDARD"},
      {"Fine", "FINE"},
      {"HiDensity", "HIDENSITY"},
      {"CMYPrint", "CMYPRINT"},
      {"HighSpeed", "HIGH_SPEED"}},
     "STANDARD"},
    {"QVLINESMOOTHING",
     &Output_QVLINESMOOTHING,
     kBoth,
     "QVLineSmoothing",
     {{"OFF", "OFF"}, {"Low", "LOW"}, {"High", "HIGH"}},
     "OFF"},
    {"QVSCREENING",
     &Output_QVSCREENING,
     kBoth,
     "QVScreening",
     {{"ErrorDiff", "ERRORDIFF"}, {"Raster70", "RASTER70"}, {"Raster100", "RASTER100"}},
     "ERRORDIFF"},
    {"QVGAMMAADJUSTMENT", &Output_QVGAMMAADJUSTMENT, kDialog, "QVGammaAdjustmentValue", kDigits,
     "OFF"},
    {"QVGAMMAADJUSTMENT", &Output_QVGAMMAADJUSTMENT, kPlain, "QVGammaAdjustment", kWords, "OFF"},
    {"QVGCBRIGHTNESS",
     &Output_QVGCBRIGHTNESS,
     kBoth,
     "QVGCBrightness",
     {{"Lightest", "-2"}, {"Lighter", "-1"}, {"Standard", "0"}, {"Darker", "1"}, {"Darkest", "2"}},
     "0"},
    {"QVGCCONTRAST",
     &Output_QVGCCONTRAST,
     kBoth,
     "QVGCContrast",
     {{"Weakest", "-2"},
      {"Weaker", "-1"},
      {"Standard", "0"},
      {"Stronger", "1"},
      {"Strongest", "2"}},
     "0"},
    {"QVBARCODEAREA", &Output_QVBCODEAREA, kDialog, "QVBarcodeArea", kWords, "OFF"},
    {"QVBARCODEDENSITY", &Output_QVBARCODEDENSITY, kBoth, "QVBarcodeDensity", kDensities, "0"},
    {"QVBARCODEPROOF", &Output_QVBARCODEPROOF, kDialog, "QVBarcodeProofValue", kDigits, "OFF"},
    {"QVBARCODEPROOF", &Output_QVBARCODEPROOF, kPlain, "QVBarcodeProof", kWords, "OFF"},
    {"QVENVELOPEIMAGEPROCESSING", &Output_QVENVELOPEIMAGEPROCESSING, kDialog,
     "QVEnvelopeImageProcessingValue", kDigits, "OFF"},
    {"QVENVELOPEIMAGEPROCESSING", &Output_QVENVELOPEIMAGEPROCESSING, kPlain,
     "QVEnvelopeImageProcessing", kWords, "OFF"},
    {"QVCOLORPROFILE", &Output_QVCOLORPROFILE, kDialog, "QVColorProfileValue", kDigits, "OFF"},
    {"QVCOLORPROFILE", &Output_QVCOLORPROFILE, kPlain, "QVColorProfile", kWords, "OFF"},
    {"QVRENDERINGINTENT",
     &Output_QVRENDERINGINTENT,
     kBoth,
     "QVRenderingIntent",
     {{"RelativeColorimetric", "RELATIVECOLORIMETRIC"},
      {"AbsoluteColorimetric", "ABSOLUTECOLORIMETRIC"},
      {"Perceptual", "PERCEPTUAL"},
      {"Saturation", "SATURATION"}},
     "PERCEPTUAL"},
    {"QVMAXDROPS",
     &Output_QVMAXDROPS,
     kBoth,
     "QVMaxDrops",
     {{"Auto", "AUTO"},
      {"One", "1"},
      {"Two", "2"},
      {"Three", "3"},
      {"Four", "4"},
      {"Five", "5"},
      {"Six", "6"},
      {"Seven", "7"},
      {"Eight", "8"},
      {"Nine", "9"},
      {"Ten", "10"},
      {"Eleven", "11"}},
     "AUTO"},
};
INSTANTIATE_TEST_SUITE_P(Quality, TableVariableLine, testing::ValuesIn(kQuality),
                         caseName<TableCase>);

const TableCase kFinishing[] = {
    {"QVBINDING", &Output_QVBINDING, kDialog, "QVBindingValue", kBindingSides, "LEFTBINDING"},
    {"QVBINDING", &Output_QVBINDING, kPlain, "QVBinding", kBindingSides, "LEFTBINDING"},
    {"QVGUTTER", &Output_QVGUTTER, kBoth, "QVGutter", {{"false", "OFF"}, {"true", "ON"}}, "OFF"},
    {"QVGUTTERAUTOREDUCING", &Output_QVGUTTERAUTOREDUCING, kDialog, "QVGutterAutoReducingValue",
     kDigits, "OFF"},
    {"QVGUTTERAUTOREDUCING", &Output_QVGUTTERAUTOREDUCING, kPlain, "QVGutterAutoReducing", kTruths,
     "OFF"},
    {"QVSTAPLEMODE",
     &Output_QVSTAPLEMODE,
     kBoth,
     "QVStapleMode",
     {{"OFF", "OFF"},
      {"OneStaple", "1STAPLE"},
      {"TwoStaple", "2STAPLES"},
      {"Left1", "1STAPLELEFT"},
      {"Right1", "1STAPLERIGHT"}},
     "OFF"},
    {"QVPUNCHMODE",
     &Output_QVPUNCHMODE,
     kBoth,
     "QVPunchMode",
     {{"OFF", "OFF"}, {"TwoHoles", "2HOLES"}, {"ThreeHoles", "3HOLES"}, {"FourHoles", "4HOLES"}},
     "OFF"},
    {"QVFOLDMODE",
     &Output_QVFOLDMODE,
     kBoth,
     "QVFoldMode",
     {{"OFF", "OFF"},
      {"Fold2", "2FOLD"},
      {"FoldInner3", "3FOLDINNER"},
      {"FoldOuter3", "3FOLDOUTER"},
      {"ZFold", "ZFOLD"}},
     "OFF"},
    {"QVFOLDINNEROUTER",
     &Output_QVFOLDINNEROUTER,
     kBoth,
     "QVFoldInnerOuter",
     {{"Inner", "INNER"}, {"Outer", "OUTER"}},
     "INNER"},
    {"QVFOLDBINDING",
     &Output_QVFOLDBINDING,
     kBoth,
     "QVFoldBinding",
     {{"LeftAndTop", "LEFTANDTOP"}, {"RightAndBottom", "RIGHTANDBOTTOM"}},
     "LEFTANDTOP"},
    {"QVBOOKLETBINDING",
     &Output_QVBOOKLETBINDING,
     kBoth,
     "QVBookletBinding",
     {{"OFF", "OFF"}, {"TwoFold", "2-FOLD"}, {"FoldStaple", "2-FOLDANDSTAPLE"}},
     "OFF"},
    {"QVBOOKLETSPLITTING",
     &Output_QVBOOKLETSPLITTING,
     kBoth,
     "QVBookletSplitting",
     {{"OFF", "OFF"},    {"AUTO", "AUTO"},  {"1Sheet", "1"},   {"2Sheet", "2"},   {"3Sheet", "3"},
      {"4Sheet", "4"},   {"5Sheet", "5"},   {"6Sheet", "6"},   {"7Sheet", "7"},   {"8Sheet", "8"},
      {"9Sheet", "9"},   {"10Sheet", "10"}, {"11Sheet", "11"}, {"12Sheet", "12"}, {"13Sheet", "13"},
      {"14Sheet", "14"}, {"15Sheet", "15"}, {"16Sheet", "16"}, {"17Sheet", "17"}, {"18Sheet", "18"},
      {"19Sheet", "19"}, {"20Sheet", "20"}, {"0Sheet", ""},    {"21Sheet", ""}},
     "OFF"},
    {"QVBOOKLETGUTTER", &Output_QVBOOKLETGUTTER, kDialog, "QVBookletGutterValue", kDigits, "OFF"},
    {"QVBOOKLETGUTTER", &Output_QVBOOKLETGUTTER, kPlain, "QVBookletGutter", kTruths, "OFF"},
    {"QVBOOKLETGUTTERAUTOREDUCING", &Output_QVBOOKLETGUTTERAUTOREDUCING, kBoth,
     "QVBookletGutterAutoReducing", kWords, "OFF"},
    {"QVBOOKLETCOVER",
     &Output_QVBOOKLETCOVER,
     kBoth,
     "QVBookletCover",
     {{"OFF", "OFF"}, {"OnlyCover", "ONLYCOVER"}, {"ExceptCover", "EXCEPTCOVER"}},
     "OFF"},
    {"QVWAITINGEXCEPTCOVER", &Output_QVWAITINGEXCEPTCOVER, kBoth, "QVWaitingExceptCover", kWords,
     "OFF"},
    {"QVBOOKLETCOVERSHEETTRAY", &Output_QVBOOKLETCOVERSHEETTRAY, kDialog, "QVBookletCoverSheetTray",
     with(kFiveTrays, {{"ExternalFeeder", ""}}), "TRAY1"},
    {"QVBOOKLETCOVERSHEETTRAY", &Output_QVBOOKLETCOVERSHEETTRAY, kPlain, "QVBookletCoverSheetTray",
     with(kFiveTrays, {{"ExternalFeeder", ""}}), "STANDARD"},
    {"QVJOG",
     &Output_QVJOG,
     kBoth,
     "QVJog",
     {{"OFF", "OFF"}, {"Set", "SET"}, {"Job", "JOB"}},
     "OFF"},
    {"QVJOBSEPSHEET",
     &Output_QVJOBSEPSHEET,
     kBoth,
     "QVJobSepSheet",
     {{"OFF", "OFF"}, {"BetweenSets", "BETWEENSETS"}, {"BetweenJobs", "BETWEENJOBS"}},
     "OFF"},
    {"QVJOBSEPSHEETTRAY", &Output_QVJOBSEPSHEETTRAY, kDialog, "QVJobSepSheetTray", kSixTrays,
     "TRAY1"},
    {"QVJOBSEPSHEETTRAY", &Output_QVJOBSEPSHEETTRAY, kPlain, "QVJobSepSheetTray", kSixTrays,
     "STANDARD"},
    {"QVJOBSEPSHEETTEXT",
     &Output_QVJOBSEPSHEETTEXT,
     kBoth,
     "QVJobSepSheetText",
     {{"OFF", "OFF"}, {"Number", "NUMBER"}, {"Character", "CHARACTER"}},
     "OFF"},
    {"QVCOVERSHEET", &Output_QVCOVERSHEET, kBoth, "QVCoverSheet", kWords, "OFF"},
    {"QVFRONTCOVERSHEET", &Output_QVFRONTCOVERSHEET, kBoth, "QVFrontCoverSheet", kWords, "OFF"},
    {"QVFRONTCOVERSHEETTRAY", &Output_QVFRONTCOVERSHEETTRAY, kDialog, "QVFrontCoverSheetTray",
     kSixTrays, "TRAY1"},
    {"QVFRONTCOVERSHEETTRAY", &Output_QVFRONTCOVERSHEETTRAY, kPlain, "QVFrontCoverSheetTray",
     kSixTrays, "STANDARD"},
    {"QVBACKCOVERSHEET", &Output_QVBACKCOVERSHEET, kBoth, "QVBackCoverSheet", kWords, "OFF"},
    {"QVBACKCOVERSHEETTRAY", &Output_QVBACKCOVERSHEETTRAY, kDialog, "QVBackCoverSheetTray",
     kSixTrays, "TRAY1"},
    {"QVBACKCOVERSHEETTRAY", &Output_QVBACKCOVERSHEETTRAY, kPlain, "QVBackCoverSheetTray",
     kSixTrays, "STANDARD"},
};
INSTANTIATE_TEST_SUITE_P(Finishing, TableVariableLine, testing::ValuesIn(kFinishing),
                         caseName<TableCase>);

const TableCase kOutputAndIdentity[] = {
    {"QVOUTPUTTRAY",
     &Output_QVOUTPUTTRAY,
     kBoth,
     "QVOutputTray",
     {{"Auto", "AUTO"},
      {"FaceDown", "FACEDOWN"},
      {"Upper", "UPPER"},
      {"Stacker", "STACKER"},
      {"AutoStacker", "AUTOSTACKER"},
      {"WideStacker", "WIDESTACKER"},
      {"HighCapacityStacker", "HICAPACITYSTACKER"}},
     "AUTO"},
    {"QVOUTPUTFACE",
     &Output_QVOUTPUTFACE,
     kBoth,
     "QVOutputFace",
     {{"FaceUp", "FACEUP"}, {"FaceDown", "FACEDOWN"}},
     "FACEUP",
     kStackerChosen},
    {"QVCONTINUOUSOUTPUT", &Output_QVCONTINUOUSOUTPUT, kBoth, "QVContinuousOutput", kWords, "OFF"},
    {"QVREVERSEORDER", &Output_QVREVERSEORDER, kBoth, "QVReverseOrder", kWords, "OFF"},
    {"QVFORM", &Output_QVFORM, kBoth, "QVForm", kWords, "OFF"},
    {"QVFORMPATTERN",
     &Output_QVFORMPATTERN,
     kBoth,
     "QVFormPattern",
     {{"One", "ONE"},
      {"DupLong", "DUPLONG"},
      {"DupShort", "DUPSHORT"},
      {"OneDupLong", "ONEDUPLONG"},
      {"OneDupShort", "ONEDUPSHORT"}},
     "ONE"},
    {"QVFORMSURFACE",
     &Output_QVFORMSURFACE,
     kBoth,
     "QVFormSurface",
     {{"OFF", "FRONT"}, {"ON", "BACK"}},
     "BACK"},
    {"QVFORMSEPARATE", &Output_QVFORMSEPARATE, kBoth, "QVFormSeparate", kWords, "OFF"},
    {"QVPRIORITYLAYER",
     &Output_QVPRIORITY_LAYER,
     kBoth,
     "QVPriorityLayer",
     {{"Overlay", "OVERLAY"}, {"Original", "ORIGINAL"}, {"Form", "FORM"}},
     "OVERLAY"},
    {"QVOWNERNAME", &Output_QVOWNERNAME, kDialog, "QVOwnerName", kWords, "OFF"},
    {"QVJOBNAME", &Output_QVJOBNAME, kDialog, "QVJobName", kWords, "OFF"},
    {"QVSECRETNUM", &Output_QVSECRETNUM, kDialog, "QVSecretNum", kWords, "OFF"},
    {"QVHIDEJOB", &Output_QVHIDEJOB, kBoth, "QVHideJob", kWords, "OFF"},
    {"QVPRINTSPEED",
     &Output_QVPRINTSPEED,
     kBoth,
     "QVPrintSpeed",
     {{"OFF", "STANDARD"}, {"ON", "LOWSPEED"}},
     "STANDARD"},
    {"QVCARBONCOPY", &Output_QVCARBONCOPY, kBoth, "QVCarbonCopy", kWords, "OFF"},
    {"QVCARBONCOPYPRIORITY1", &Output_QVCARBONCOPYPRIORITY1, kBoth, "QVCarbonCopyPriority1",
     kPriorities, "NOUSE"},
    {"QVCARBONCOPYPRIORITY2", &Output_QVCARBONCOPYPRIORITY2, kBoth, "QVCarbonCopyPriority2",
     kPriorities, "NOUSE"},
    {"QVCARBONCOPYPRIORITY3", &Output_QVCARBONCOPYPRIORITY3, kBoth, "QVCarbonCopyPriority3",
     kPriorities, "NOUSE"},
    {"QVCARBONCOPYPRIORITY4", &Output_QVCARBONCOPYPRIORITY4, kBoth, "QVCarbonCopyPriority4",
     kPriorities, "NOUSE"},
};
INSTANTIATE_TEST_SUITE_P(OutputAndIdentity, TableVariableLine,
                         testing::ValuesIn(kOutputAndIdentity), caseName<TableCase>);

}  // namespace
}  // namespace kelm::pjl
