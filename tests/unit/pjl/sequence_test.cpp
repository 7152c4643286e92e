// The whole header: its lines in their order, with the values of a job without options.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/sequence.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/fake/fake_platform.hpp"
#include "tests/unit/pjl/lines.hpp"

namespace kelm::pjl {
namespace {

// One line and its value for jobs that say nothing of it; null: such a job has no such line.
struct HeaderLine {
  const char* name;
  const char* dialog;
  const char* plain;
};

constexpr const char* kNoLine = nullptr;

// The computer is "host", the console user "user", the job's title "job".
constexpr HeaderLine kLines[] = {
    {"QVHOSTNAME", "686F7374", "686F7374"},
    {"QVMANUALZOOM", "OFF", "OFF"},
    {"QVZOOMRATE", kNoLine, "100"},
    {"MEDIATYPE", "AUTO", "AUTO"},
    {"QVOUTPUTMODE", "AUTO", "AUTO"},
    {"QTY", kNoLine, "1"},
    {"COPIES", "1", kNoLine},
    {"DUPLEX", "ON", "ON"},
    {"BINDING", "LONGEDGE", "LONGEDGE"},
    {"QVWAITAFTERPROOF", "OFF", "OFF"},
    {"QVPAGESIZE", "A4", "A4"},
    {"QVPAGESIZEWIDTH", "21000", "21000"},
    {"QVPAGESIZEHEIGHT", "29700", "29700"},
    {"ORIENTATION", "PORTRAIT", "PORTRAIT"},
    {"PAPER", "AUTO", "AUTO"},
    {"QVTARGETPAPERSIZEWIDTH", "21000", "21000"},
    {"QVTARGETPAPERSIZEHEIGHT", "29700", "29700"},
    {"AUTOSELECT", "ON", "ON"},
    {"MEDIASOURCE", "AUTO", "AUTO"},
    {"QVOUTPUTMETHOD", "PRINT", "PRINT"},
    {"QVOUTPUTBOX", "", "SHAREDBOX1"},
    {"QVPAGETRAY", "OFF", kNoLine},
    {"QVPAGETRAYSTANDARD", "", kNoLine},
    {"QVPAGETRAYTRAY1", "", kNoLine},
    {"QVPAGETRAYTRAY2", "", kNoLine},
    {"QVPAGETRAYTRAY3", "", kNoLine},
    {"QVPAGETRAYEXTERNALFEEDER", "", kNoLine},
    {"QVPAGETRAYREPEAT", "0", kNoLine},
    {"QVMULTIUP", "OFF", "OFF"},
    {"QVMULTIUPSINGLEPAGE", "1", "1"},
    {"QVBOOKLET", "OFF", "OFF"},
    {"QVHEADERFOOTERPRINT", "OFF", kNoLine},
    {"QVPAGENUMPRINT", "OFF", kNoLine},
    {"QVPAGENUMTRANSPARENT", "OFF", kNoLine},
    {"QVPAGENUMSTARTNUM", "1", kNoLine},
    {"QVPAGENUMSTARTPAGE", "1", kNoLine},
    {"QVPAGENUMPOSITION", "TOPLEFT", kNoLine},
    {"QVSTAMPPAGEFONT", "417269616C4D54", kNoLine},
    {"QVSTAMPPAGESIZE", "8", kNoLine},
    {"QVDATEPRINT", "OFF", kNoLine},
    {"QVDATETRANSPARENT", "OFF", kNoLine},
    {"QVDATETARGETPAGE", "FULLPAGE", kNoLine},
    {"QVDATESPECIFY", "TODAY", kNoLine},
    {"QVDATEINFO", "", kNoLine},
    {"QVDATEPOSITION", "TOPLEFT", kNoLine},
    {"QVSTAMPDATEFONT", "417269616C4D54", kNoLine},
    {"QVSTAMPDATESIZE", "8", kNoLine},
    {"QVIMAGESHIFT", "OFF", "OFF"},
    {"QVIMAGESHIFTFRONTV", "0", "0"},
    {"QVIMAGESHIFTFRONTH", "0", "0"},
    {"QVIMAGESHIFTBACKV", "0", "0"},
    {"QVIMAGESHIFTBACKH", "0", "0"},
    {"QVROTATE", "AUTO", "AUTO"},
    {"QVTEXTPRINT", "OFF", kNoLine},
    {"QVTEXTTRANSPARENT", "OFF", kNoLine},
    {"QVTEXTTARGETPAGE", "FULLPAGE", kNoLine},
    {"QVTEXTINFO", "", kNoLine},
    {"QVTEXTPOSITION", "TOPLEFT", kNoLine},
    {"QVSTAMPTEXTFONT", "417269616C4D54", kNoLine},
    {"QVSTAMPTEXTSIZE", "8", kNoLine},
    {"QVDITHERTYPE", "PHOTO", "PHOTO"},
    {"QVPRINTDENSITY", "0", "0"},
    {"QVIMAGEQUALITY", "STANDARD", "STANDARD"},
    {"QVLINESMOOTHING", "OFF", "OFF"},
    {"QVSCREENING", "ERRORDIFF", "ERRORDIFF"},
    {"QVGAMMAADJUSTMENT", "OFF", "OFF"},
    {"QVGCBRIGHTNESS", "0", "0"},
    {"QVGCCONTRAST", "0", "0"},
    {"QVGCCYAN", "100", "100"},
    {"QVGCMAGENTA", "100", "100"},
    {"QVGCYELLOW", "100", "100"},
    {"QVGCBLACK", "100", "100"},
    {"QVGCGRAY", "100", kNoLine},
    {"QVGCRED", "100", "100"},
    {"QVGCGRAY", kNoLine, "100"},
    {"QVBARCODEAREA", "OFF", "OFF"},
    {"QVBARCODESELECTION", "", ""},
    {"QVBARCODEDENSITY", "0", "0"},
    {"QVBARCODEPROOF", "OFF", "OFF"},
    {"QVENVELOPEIMAGEPROCESSING", "OFF", "OFF"},
    {"QVCOLORPROFILE", "OFF", "OFF"},
    {"QVOUTPUTPROFILESELECTION", "", "AUTO"},
    {"QVRENDERINGINTENT", "PERCEPTUAL", "PERCEPTUAL"},
    {"QVMAXDROPS", "AUTO", "AUTO"},
    {"QVBINDING", "LEFTBINDING", "LEFTBINDING"},
    {"QVGUTTER", "OFF", "OFF"},
    {"QVGUTTERDISTANCE", "0", "0"},
    {"QVGUTTERAUTOREDUCING", "OFF", "OFF"},
    {"QVSTAPLEMODE", "OFF", "OFF"},
    {"QVPUNCHMODE", "OFF", "OFF"},
    {"QVFOLDMODE", "OFF", "OFF"},
    {"QVFOLDINNEROUTER", "INNER", "INNER"},
    {"QVFOLDBINDING", "LEFTANDTOP", "LEFTANDTOP"},
    {"QVBOOKLETBINDING", "OFF", "OFF"},
    {"QVBOOKLETSPLITTING", "OFF", "OFF"},
    {"QVBOOKLETGUTTER", "OFF", "OFF"},
    {"QVBOOKLETGUTTERDISTANCE", "0", "0"},
    {"QVBOOKLETGUTTERAUTOREDUCING", "OFF", "OFF"},
    {"QVBOOKLETCOVER", "OFF", "OFF"},
    {"QVWAITINGEXCEPTCOVER", "OFF", "OFF"},
    {"QVBOOKLETCOVERSHEETTRAY", "TRAY1", "STANDARD"},
    {"QVJOG", "OFF", "OFF"},
    {"QVJOBSEPSHEET", "OFF", "OFF"},
    {"QVJOBSEPSHEETTRAY", "TRAY1", "STANDARD"},
    {"QVJOBSEPSHEETTEXT", "OFF", "OFF"},
    {"QVCOVERSHEET", "OFF", "OFF"},
    {"QVFRONTCOVERSHEET", "OFF", "OFF"},
    {"QVFRONTCOVERSHEETTRAY", "TRAY1", "STANDARD"},
    {"QVBACKCOVERSHEET", "OFF", "OFF"},
    {"QVBACKCOVERSHEETTRAY", "TRAY1", "STANDARD"},
    {"QVOUTPUTTRAY", "AUTO", "AUTO"},
    {"QVOUTPUTFACE", "FACEDOWN", "FACEDOWN"},
    {"QVCONTINUOUSOUTPUT", "OFF", "OFF"},
    {"QVREVERSEORDER", "OFF", "OFF"},
    {"QVFORM", "OFF", "OFF"},
    {"QVFORMPATTERN", "ONE", "ONE"},
    {"QVFORMSURFACE", "BACK", "BACK"},
    {"QVFORMSEPARATE", "OFF", "OFF"},
    {"QVFORMSELECT1", "", ""},
    {"QVFORMSELECT2", "", ""},
    {"QVPRIORITYLAYER", "OVERLAY", "OVERLAY"},
    {"QVOWNERNAME", "OFF", "OFF"},
    {"USERNAME", "75736572", "75736572"},
    {"QVJOBNAME", "OFF", "OFF"},
    {"JOBNAME", "6A6F62", "6A6F62"},
    {"QVSECRETNUM", "OFF", "OFF"},
    {"PASSWORD", "", ""},
    {"QVHIDEJOB", "OFF", kNoLine},
    {"QVJOBCOMMENT", "", ""},
    {"QVPRINTSPEED", "STANDARD", "STANDARD"},
    {"QVCARBONCOPY", "OFF", "OFF"},
    {"QVCARBONCOPYPRIORITY1", "NOUSE", "NOUSE"},
    {"QVCARBONCOPYPRIORITY2", "NOUSE", "NOUSE"},
    {"QVCARBONCOPYPRIORITY3", "NOUSE", "NOUSE"},
    {"QVCARBONCOPYPRIORITY4", "NOUSE", "NOUSE"},
};

constexpr char kFront[] =
    "\x1B%-12345X@PJL\n"
    "@PJL COMMENT KELM Printer Driver\n"
    "@PJL SET QVPJLVERSION=2.00\n"
    "@PJL SET QVPJLIDENTIFIER=KELM_IJ_PJL\n"
    "@PJL SET QVRIPCONTROLFLAG=13\n"
    "@PJL SET QVSOFTWARENAME=KELM MAC Postscript Printer Driver\n"
    "@PJL SET QVSOFTWAREVERSION=1.5.000\n";
constexpr char kEnd[] = "@PJL ENTER LANGUAGE=POSTSCRIPT\n";

class Header : public testing::Test {
 protected:
  Header() {
    platform_.computerName.computer = "host";
    platform_.consoleUser.user = "user";
  }

  static std::string header(const Options& options) {
    TestJob job(options);
    job->jobNameHex = "6A6F62";
    MemoryOutput output;
    OutputPJL(output.stream(), *job);
    return output.text();
  }

  // The header of a job that says nothing.
  static std::string expected(const char* HeaderLine::*value) {
    std::string text = kFront;
    for (const HeaderLine& line : kLines) {
      if (line.*value == kNoLine) continue;
      text += std::string("@PJL SET ") + line.name + "=" + line.*value + "\n";
    }
    return text + kEnd;
  }

  static bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
  }

  platform::FakePlatform platform_;
};

TEST_F(Header, OfAJobWithoutOptionsHasEveryLineButThoseOfTheDialog) {
  EXPECT_EQ(header({}), expected(&HeaderLine::plain));
}

TEST_F(Header, OfADialogJobWithoutFurtherOptionsHasThoseOfTheDialogToo) {
  EXPECT_EQ(header({{"PrintPDE", ""}}), expected(&HeaderLine::dialog));
  EXPECT_EQ(header({{"PrintPDE", "false"}}), expected(&HeaderLine::dialog));
}

TEST_F(Header, OfAPlainJobHasNoPageTrayStampOrHideJobLinesWhateverTheJobAsks) {
  const std::string text = header({{"QVPageTray", "ON"},
                                   {"QVPageTrayTray1Value", "1"},
                                   {"QVHeaderFooterPrintValue", "1"},
                                   {"QVPageNumPrintValue", "1"},
                                   {"QVStampPageSizeValue", "9"},
                                   {"QVDatePrintValue", "1"},
                                   {"QVDatePosition", "TopRight"},
                                   {"QVTextPrintValue", "1"},
                                   {"QVTextInfoTextValueUTF8", "41"},
                                   {"QVHideJob", "ON"}});
  EXPECT_EQ(text, expected(&HeaderLine::plain));
  for (const char* name : {"QVPAGETRAY", "QVHEADERFOOTERPRINT", "QVPAGENUM", "QVSTAMP", "QVDATE",
                           "QVTEXT", "QVHIDEJOB"}) {
    EXPECT_FALSE(contains(text, name)) << name;
  }
}

TEST_F(Header, HasAutoForTheMediaTypeAnyAndNothingForAnUnknownOne) {
  EXPECT_TRUE(contains(header({{"QVMediaType", "Any"}}), "\n@PJL SET MEDIATYPE=AUTO\n"));
  EXPECT_TRUE(contains(header({{"QVMediaType", "Papyrus"}}), "\n@PJL SET MEDIATYPE=\n"));
}

TEST_F(Header, HasTheNumberOfSheetsOfASplitBooklet) {
  EXPECT_TRUE(
      contains(header({{"QVBookletSplitting", "12Sheet"}}), "\n@PJL SET QVBOOKLETSPLITTING=12\n"));
}

TEST_F(Header, HasAutoDropsAndStandardDensityForAJobThatDoesNotAsk) {
  const std::string text = header({});
  EXPECT_TRUE(contains(text, "\n@PJL SET QVMAXDROPS=AUTO\n"));
  EXPECT_TRUE(contains(text, "\n@PJL SET QVPRINTDENSITY=0\n"));
}

TEST_F(Header, HasTheFourPrioritiesEvenWithoutACarbonCopy) {
  EXPECT_TRUE(
      contains(header({{"QVCarbonCopy", "OFF"}, {"QVCarbonCopyPriority2", "Tray1"}}),
               "\n@PJL SET QVCARBONCOPY=OFF\n@PJL SET QVCARBONCOPYPRIORITY1=NOUSE\n"
               "@PJL SET QVCARBONCOPYPRIORITY2=TRAY1\n@PJL SET QVCARBONCOPYPRIORITY3=NOUSE\n"
               "@PJL SET QVCARBONCOPYPRIORITY4=NOUSE\n"));
}

TEST_F(Header, EndsAllLinesWithABareLineFeed) {
  EXPECT_FALSE(contains(header({{"PrintPDE", ""}}), "\r"));
}

TEST_F(Header, HasOneUniversalExitLanguageSequence) {
  const std::string text = header({{"PrintPDE", ""}});
  EXPECT_EQ(text.find('\x1B'), 0U);
  EXPECT_EQ(text.find('\x1B', 1), std::string::npos);
}

TEST_F(Header, LeavesTheShortEdgeOfABookletInTheJob) {
  TestJob job({{"QVBookletBinding", "TwoFold"}, {"QVDuplex", "LongEdge"}});
  MemoryOutput output;
  OutputPJL(output.stream(), *job);
  std::string value;
  EXPECT_TRUE(job::getOptionValue(&*job, "QVDuplex", value));
  EXPECT_EQ(value, "ShortEdge");
}

TEST_F(Header, IsThatOfJobsWithHundredsOfOptionsToo) {
  Options options;
  for (int i = 0; i < 300; ++i) options.emplace_back("X" + std::to_string(i), "1");
  EXPECT_EQ(header(options), expected(&HeaderLine::plain));
}

TEST_F(Header, ReturnsTheResultOfItsLastCharacterWrite) {
  TestJob job;
  MemoryOutput output;
  EXPECT_EQ(OutputPJL(output.stream(), *job), '\n');
  std::FILE* readOnly = std::fopen("/dev/null", "r");
  ASSERT_NE(readOnly, nullptr);
  EXPECT_EQ(OutputPJL(readOnly, *job), EOF);
  std::fclose(readOnly);
}

TEST(HeaderSections, GateTheFourGroupsOfTheDialogAsGroups) {
  std::vector<std::size_t> sizes;
  for (const HeaderSection& section : headerSections()) {
    if (section.dialogOnly) sizes.push_back(section.steps.size());
  }
  EXPECT_EQ(sizes, (std::vector<std::size_t>{7, 16, 7, 1}));
}

TEST(HeaderSections, Have132Variables) {
  std::size_t count = 0;
  for (const HeaderSection& section : headerSections()) count += section.steps.size();
  EXPECT_EQ(count, 132U);
}

}  // namespace
}  // namespace kelm::pjl
