// The variables of host, zoom, paper, copies, duplex and trays that need more than a table.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/paper_writers.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "job/print_job.hpp"
#include "pjl/paper_variables.hpp"
#include "platform/fake/fake_platform.hpp"
#include "tests/unit/pjl/lines.hpp"

namespace kelm::pjl {
namespace {

const std::string kPaper = "com.apple.print.PageToPaperMappingMediaName";
const std::string kPMCopies = "com.apple.print.PrintSettings.PMCopies..n.";

std::string ppd(const std::string& name) { return std::string(KELM_PPDS_DIR) + "/" + name; }

class HostName : public testing::Test {
 protected:
  platform::FakePlatform platform_;
};

TEST_F(HostName, IsTheComputersNameInHex) {
  platform_.computerName.computer = "mac";
  EXPECT_EQ(plain(Output_QVHOSTNAME), "@PJL SET QVHOSTNAME=6D6163\n");
  EXPECT_EQ(dialog(Output_QVHOSTNAME), "@PJL SET QVHOSTNAME=6D6163\n");
}

TEST_F(HostName, HasNoLineForAComputerWithAnEmptyName) {
  EXPECT_EQ(plain(Output_QVHOSTNAME), "");
  EXPECT_EQ(dialog(Output_QVHOSTNAME), "");
}

TEST_F(HostName, IsTheJobsRatherThanTheComputersAndEncodedHereToo) {
  platform_.computerName.computer = "mac";
  EXPECT_EQ(plain(Output_QVHOSTNAME, {{"QVHostNameValue", "A\tB"}}),
            "@PJL SET QVHOSTNAME=41 942\n");
  EXPECT_EQ(dialog(Output_QVHOSTNAME, {{"QVHostNameValue", "A\tB"}}),
            "@PJL SET QVHOSTNAME=41 942\n");
}

TEST_F(HostName, HasNoLineForAnEmptyNameOfTheJob) {
  platform_.computerName.computer = "mac";
  EXPECT_EQ(plain(Output_QVHOSTNAME, {{"QVHostNameValue", ""}}), "");
}

TEST_F(HostName, OfTheComputerThatDoesNotFitTheBufferCountsAsNone) {
  platform_.computerName.computer = std::string(4096, 'a');
  EXPECT_EQ(plain(Output_QVHOSTNAME), "");
}

TEST_F(HostName, IsCutWhereItsHexTextFillsTheBuffer) {
  std::string hex;
  for (int i = 0; i < 2047; ++i) hex += "61";
  platform_.computerName.computer = std::string(4095, 'a');
  EXPECT_EQ(plain(Output_QVHOSTNAME), "@PJL SET QVHOSTNAME=" + hex + "\n");
  EXPECT_EQ(plain(Output_QVHOSTNAME, {{"QVHostNameValue", std::string(5000, 'a')}}),
            "@PJL SET QVHOSTNAME=" + hex + "\n");
}

TEST(ManualZoom, OfAPlainJobIsOnForEveryRateButOff) {
  EXPECT_EQ(plain(Output_QVMANUALZOOM, {{"QVZoomRate", "OFF"}}), "@PJL SET QVMANUALZOOM=OFF\n");
  EXPECT_EQ(plain(Output_QVMANUALZOOM), "@PJL SET QVMANUALZOOM=OFF\n");
  EXPECT_EQ(plain(Output_QVMANUALZOOM, {{"QVZoomRate", "70"}}), "@PJL SET QVMANUALZOOM=ON\n");
  EXPECT_EQ(plain(Output_QVMANUALZOOM, {{"QVZoomRate", "Off"}}), "@PJL SET QVMANUALZOOM=ON\n");
  EXPECT_EQ(plain(Output_QVMANUALZOOM, {{"QVZoomRate", ""}}), "@PJL SET QVMANUALZOOM=ON\n");
}

TEST(ManualZoom, ReadsOnlyTheOptionOfItsKindOfJob) {
  EXPECT_EQ(plain(Output_QVMANUALZOOM, {{"QVZoomRateValue", "1"}}), "@PJL SET QVMANUALZOOM=OFF\n");
  EXPECT_EQ(dialog(Output_QVMANUALZOOM, {{"QVZoomRate", "70"}}), "@PJL SET QVMANUALZOOM=OFF\n");
}

TEST(ZoomRate, OfADialogJobIsCopied) {
  EXPECT_EQ(dialog(Output_QVZOOMRATE, {{"QVZoomRateTextValue", "141"}}),
            "@PJL SET QVZOOMRATE=141\n");
  EXPECT_EQ(dialog(Output_QVZOOMRATE, {{"QVZoomRateTextValue", ""}}), "@PJL SET QVZOOMRATE=\n");
}

TEST(ZoomRate, HasNoLineForADialogJobWithoutARate) {
  EXPECT_EQ(dialog(Output_QVZOOMRATE, {{"QVZoomRate", "70"}, {"QVZoomRateValue", "1"}}), "");
}

TEST(ZoomRate, OfAPlainJobWithoutARateIsAHundred) {
  EXPECT_EQ(plain(Output_QVZOOMRATE, {{"QVZoomRateTextValue", "70"}}), "@PJL SET QVZOOMRATE=100\n");
  EXPECT_EQ(plain(Output_QVZOOMRATE, {{"QVZoomRate", "OFF"}}), "@PJL SET QVZOOMRATE=100\n");
}

TEST(ZoomRate, OfAPlainJobIsCopiedWhole) {
  EXPECT_EQ(plain(Output_QVZOOMRATE, {{"QVZoomRate", "70"}}), "@PJL SET QVZOOMRATE=70\n");
  EXPECT_EQ(plain(Output_QVZOOMRATE, {{"QVZoomRate", "Custom.70"}}),
            "@PJL SET QVZOOMRATE=Custom.70\n");
}

TEST(Copies, OfACollatedPlainJobAreAQuantity) {
  EXPECT_EQ(plain(Output_QTY, {{kPMCopies, "3"}}), "@PJL SET QTY=3\n");
  EXPECT_EQ(plain(Output_QTY, {{kPMCopies, "3"}, {"QVCollate", "True"}}), "@PJL SET QTY=3\n");
  EXPECT_EQ(plain(Output_QTY, {{kPMCopies, "3"}, {"QVCollate", "FALSE"}}), "@PJL SET QTY=3\n");
  EXPECT_EQ(plain(Output_QTY, {{kPMCopies, "3"}, {"QVCollate", ""}}), "@PJL SET QTY=3\n");
}

TEST(Copies, OfAPlainJobThatIsNotCollatedAreCopies) {
  EXPECT_EQ(plain(Output_QTY, {{kPMCopies, "3"}, {"QVCollate", "False"}}), "@PJL SET COPIES=3\n");
  EXPECT_EQ(plain(Output_QTY, {{kPMCopies, "3"}, {"QVCollate", "false"}}), "@PJL SET COPIES=3\n");
}

TEST(Copies, OfADialogJobAreAQuantityOnlyForACollateValueOfOne) {
  EXPECT_EQ(dialog(Output_QTY, {{kPMCopies, "3"}, {"QVCollateValue", "1"}}), "@PJL SET QTY=3\n");
  EXPECT_EQ(dialog(Output_QTY, {{kPMCopies, "3"}, {"QVCollateValue", "0"}}), "@PJL SET COPIES=3\n");
  EXPECT_EQ(dialog(Output_QTY, {{kPMCopies, "3"}, {"QVCollateValue", "11"}}),
            "@PJL SET COPIES=3\n");
  EXPECT_EQ(dialog(Output_QTY, {{kPMCopies, "3"}, {"QVCollate", "True"}}), "@PJL SET COPIES=3\n");
}

TEST(Copies, OfADialogJobWithoutACollateValueAreCopies) {
  EXPECT_EQ(dialog(Output_QTY, {{kPMCopies, "3"}}), "@PJL SET COPIES=3\n");
}

TEST(Copies, WithoutANumberAreOne) {
  EXPECT_EQ(plain(Output_QTY), "@PJL SET QTY=1\n");
  EXPECT_EQ(dialog(Output_QTY), "@PJL SET COPIES=1\n");
  EXPECT_EQ(plain(Output_QTY, {{"copies", "7"}}), "@PJL SET QTY=1\n");
}

// Both lines of a job, in the header's order.
std::string duplexLines(const Options& options, const std::string& ppdName = "") {
  TestJob job(options, ppdName.empty() ? nullptr : ppd(ppdName).c_str());
  const std::string duplex = written(Output_DUPLEX, job);
  return duplex + written(Output_BINDING, job);
}

TEST(Duplex, OfABookletIsBoundAtTheShortEdgeWhateverTheJobAsks) {
  constexpr char kShortEdge[] = "@PJL SET DUPLEX=ON\n@PJL SET BINDING=SHORTEDGE\n";
  EXPECT_EQ(duplexLines({{"QVBookletBinding", "TwoFold"}, {"QVDuplex", "LongEdge"}}), kShortEdge);
  EXPECT_EQ(duplexLines({{"QVBookletBinding", "FoldStaple"}, {"QVDuplex", "OFF"}}), kShortEdge);
  EXPECT_EQ(duplexLines({{"QVBookletBinding", "Unknown"}, {"QVDuplex", "LongEdge"}}), kShortEdge);
  EXPECT_EQ(duplexLines({{"QVBookletBinding", ""}, {"QVDuplex", "LongEdge"}}), kShortEdge);
}

TEST(Duplex, OfAJobThatIsNoBookletIsAsTheJobAsks) {
  EXPECT_EQ(duplexLines({{"QVBookletBinding", "OFF"}, {"QVDuplex", "LongEdge"}}),
            "@PJL SET DUPLEX=ON\n@PJL SET BINDING=LONGEDGE\n");
  EXPECT_EQ(duplexLines({{"QVBooklet", "LeftBinding"}, {"QVDuplex", "LongEdge"}}),
            "@PJL SET DUPLEX=ON\n@PJL SET BINDING=LONGEDGE\n");
}

TEST(Duplex, OfABookletWithoutTheOptionIsTheDefault) {
  EXPECT_EQ(duplexLines({{"QVBookletBinding", "TwoFold"}}),
            "@PJL SET DUPLEX=ON\n@PJL SET BINDING=LONGEDGE\n");
}

TEST(Duplex, OfABookletStaysShortEdgeForEveryLaterReaderOfTheJob) {
  for (const auto& variable : {&Output_DUPLEX, &Output_BINDING}) {
    TestJob job({{"QVBookletBinding", "TwoFold"}, {"QVDuplex", "LongEdge"}, {"QVJog", "Set"}});
    written(*variable, job);
    std::string value;
    EXPECT_TRUE(job::getOptionValue(&*job, "QVDuplex", value));
    EXPECT_EQ(value, "ShortEdge");
    EXPECT_TRUE(job::getOptionValue(&*job, "QVBookletBinding", value));
    EXPECT_EQ(value, "TwoFold");
    EXPECT_EQ(job->numOptions, 3);
  }
}

// CUPS names an option once; a record that is filled by hand may name it twice.
TEST(Duplex, OfABookletIsShortEdgeUnderEachOptionOfThatName) {
  TestJob job({{"QVBookletBinding", "TwoFold"}, {"QVDuplex", "LongEdge"}, {"QVJog", "Set"}});
  cups_option_t* second = nullptr;
  ASSERT_EQ(cupsAddOption("QVDuplex", "OFF", 0, &second), 1);
  std::swap(job->options[2], *second);
  cupsFreeOptions(1, second);
  written(Output_DUPLEX, job);
  EXPECT_STREQ(job->options[0].value, "TwoFold");
  EXPECT_STREQ(job->options[1].value, "ShortEdge");
  EXPECT_STREQ(job->options[2].value, "ShortEdge");
}

TEST(Duplex, OfABookletAddsNoOptionToTheJob) {
  TestJob job({{"QVBookletBinding", "TwoFold"}, {"QVJog", "Set"}});
  written(Output_DUPLEX, job);
  std::string value;
  EXPECT_FALSE(job::getOptionValue(&*job, "QVDuplex", value));
  EXPECT_EQ(job->numOptions, 2);
}

TEST(Duplex, WithoutTheOptionFollowsTheDefaultOfThePpd) {
  EXPECT_EQ(duplexLines({}, "header-duplex-off.ppd"),
            "@PJL SET DUPLEX=OFF\n@PJL SET BINDING=OFF\n");
  EXPECT_EQ(duplexLines({}, "header-duplex-long-edge.ppd"),
            "@PJL SET DUPLEX=ON\n@PJL SET BINDING=LONGEDGE\n");
  EXPECT_EQ(duplexLines({}, "header-duplex-short-edge.ppd"),
            "@PJL SET DUPLEX=ON\n@PJL SET BINDING=SHORTEDGE\n");
}

TEST(Duplex, WithoutTheOptionIsOffForADefaultThatIsNoneOfTheChoices) {
  EXPECT_EQ(duplexLines({}, "header-duplex-unknown.ppd"),
            "@PJL SET DUPLEX=OFF\n@PJL SET BINDING=OFF\n");
  EXPECT_EQ(duplexLines({}, "header-duplex-empty.ppd"),
            "@PJL SET DUPLEX=OFF\n@PJL SET BINDING=OFF\n");
}

TEST(Duplex, WithoutTheOptionIsLongEdgeForAPpdWithoutIt) {
  EXPECT_EQ(duplexLines({}, "header-without-duplex.ppd"),
            "@PJL SET DUPLEX=ON\n@PJL SET BINDING=LONGEDGE\n");
}

TEST(Duplex, OfTheJobGoesBeforeTheDefaultOfThePpd) {
  EXPECT_EQ(duplexLines({{"QVDuplex", "ShortEdge"}}, "header-duplex-off.ppd"),
            "@PJL SET DUPLEX=ON\n@PJL SET BINDING=SHORTEDGE\n");
}

TEST(PageSize, IsCustomsizeForEveryNameThatContainsCustom) {
  EXPECT_EQ(plain(Output_QVPAGESIZE, {{kPaper, "Custom.100x200"}}),
            "@PJL SET QVPAGESIZE=CUSTOMSIZE\n");
  EXPECT_EQ(dialog(Output_QVPAGESIZE, {{kPaper, "MyCustom"}}), "@PJL SET QVPAGESIZE=CUSTOMSIZE\n");
  EXPECT_EQ(plain(Output_QVPAGESIZE, {{kPaper, "custom.100x200"}}), "@PJL SET QVPAGESIZE=\n");
}

TEST(PageSize, WithoutTheOptionIsCustomsizeForCustomMedia) {
  EXPECT_EQ(plain(Output_QVPAGESIZE, {{"media", "Custom.100x200"}}),
            "@PJL SET QVPAGESIZE=CUSTOMSIZE\n");
}

TEST(PageSize, WithoutTheOptionIsTheMedia) {
  EXPECT_EQ(plain(Output_QVPAGESIZE, {{"media", "Kaku2"}}), "@PJL SET QVPAGESIZE=ENVKAKU2\n");
  EXPECT_EQ(dialog(Output_QVPAGESIZE, {{"media", "tabloid"}}), "@PJL SET QVPAGESIZE=TABLOID\n");
  EXPECT_EQ(plain(Output_QVPAGESIZE, {{"media", "iso_a4_210x297mm"}}), "@PJL SET QVPAGESIZE=\n");
}

std::string pageSizeLines(const Options& options) {
  return plain(Output_QVPAGESIZE, options) + plain(Output_QVPAGESIZEWIDTH, options) +
         plain(Output_QVPAGESIZEHEIGHT, options);
}

TEST(PageSize, ThatIsCustomAndDoesNotParseHasNoDimensionLines) {
  constexpr char kNameOnly[] = "@PJL SET QVPAGESIZE=CUSTOMSIZE\n";
  EXPECT_EQ(pageSizeLines({{kPaper, "Custom"}}), kNameOnly);
  EXPECT_EQ(pageSizeLines({{kPaper, "Custom.100"}}), kNameOnly);
  EXPECT_EQ(pageSizeLines({{kPaper, "Custom100x200"}}), kNameOnly);
  EXPECT_EQ(pageSizeLines({{kPaper, "Custom.100x"}}), kNameOnly);
}

TEST(PageSize, ThatIsCustomHasItsDimensionsInHundredthsOfWholeMillimetres) {
  EXPECT_EQ(pageSizeLines({{kPaper, "Custom.595x842"}}),
            "@PJL SET QVPAGESIZE=CUSTOMSIZE\n@PJL SET QVPAGESIZEWIDTH=21000\n"
            "@PJL SET QVPAGESIZEHEIGHT=29700\n");
  EXPECT_EQ(pageSizeLines({{kPaper, "Custom.72x144.9mm"}}),
            "@PJL SET QVPAGESIZE=CUSTOMSIZE\n@PJL SET QVPAGESIZEWIDTH=2500\n"
            "@PJL SET QVPAGESIZEHEIGHT=5100\n");
}

TEST(PageDimensions, OfADialogJobDoNotFollowTheMappedPaper) {
  const Options options = {{kPaper, "A5"}, {"media", "A3"}};
  EXPECT_EQ(dialog(Output_QVPAGESIZEWIDTH, options), "@PJL SET QVPAGESIZEWIDTH=29700\n");
  EXPECT_EQ(dialog(Output_QVPAGESIZEHEIGHT, options), "@PJL SET QVPAGESIZEHEIGHT=42000\n");
}

TEST(PageDimensions, OfAPlainJobFollowTheMappedPaperAlone) {
  const Options options = {{kPaper, "A5"},
                           {"media", "A3"},
                           {"QVPAGESizeWidthValue100", "1"},
                           {"QVPAGESizeHeightValue100", "2"}};
  EXPECT_EQ(plain(Output_QVPAGESIZEWIDTH, options), "@PJL SET QVPAGESIZEWIDTH=14800\n");
  EXPECT_EQ(plain(Output_QVPAGESIZEHEIGHT, options), "@PJL SET QVPAGESIZEHEIGHT=21000\n");
}

TEST(PageDimensions, WithoutAMappedPaperFollowTheMedia) {
  EXPECT_EQ(plain(Output_QVPAGESIZEWIDTH, {{"media", "tabloid"}}),
            "@PJL SET QVPAGESIZEWIDTH=27900\n");
  EXPECT_EQ(plain(Output_QVPAGESIZEHEIGHT, {{"media", "Custom.595x842"}}),
            "@PJL SET QVPAGESIZEHEIGHT=29700\n");
  EXPECT_EQ(plain(Output_QVPAGESIZEWIDTH, {{"media", "Unknown"}}), "@PJL SET QVPAGESIZEWIDTH=\n");
}

TEST(PageDimensions, HaveKeysWithPageInCapitals) {
  EXPECT_EQ(dialog(Output_QVPAGESIZEWIDTH, {{"QVPageSizeWidthValue100", "1"}}),
            "@PJL SET QVPAGESIZEWIDTH=21000\n");
  EXPECT_EQ(dialog(Output_QVPAGESIZEHEIGHT, {{"QVPageSizeHeightValue100", "1"}}),
            "@PJL SET QVPAGESIZEHEIGHT=29700\n");
}

TEST(TargetPaper, IsAutoForEveryTextThatContainsSameAsOriginal) {
  EXPECT_EQ(plain(Output_PAPER, {{"QVTargetPaperSize", "CustomSameAsOriginal"}}),
            "@PJL SET PAPER=AUTO\n");
}

TEST(TargetPaper, IsCustomsizeForEveryTextThatContainsCustom) {
  EXPECT_EQ(plain(Output_PAPER, {{"QVTargetPaperSize", "Custom"}}), "@PJL SET PAPER=CUSTOMSIZE\n");
  EXPECT_EQ(dialog(Output_PAPER, {{"QVTargetPaperSize", "Custom.1x1"}}),
            "@PJL SET PAPER=CUSTOMSIZE\n");
}

TEST(TargetPaper, ThatIsAbsentIsAutoEvenForADialogJob) {
  EXPECT_EQ(dialog(Output_PAPER), "@PJL SET PAPER=AUTO\n");
  EXPECT_EQ(dialog(Output_PAPER, {{"media", "A3"}}), "@PJL SET PAPER=AUTO\n");
}

class TargetDimensions : public testing::Test {
 protected:
  static std::string plainLines(const Options& options) {
    return plain(Output_QVTARGETPAPERSIZEWIDTH, options) +
           plain(Output_QVTARGETPAPERSIZEHEIGHT, options);
  }

  static std::string lines(const std::string& width, const std::string& height) {
    return "@PJL SET QVTARGETPAPERSIZEWIDTH=" + width +
           "\n@PJL SET QVTARGETPAPERSIZEHEIGHT=" + height + "\n";
  }

  platform::FakePlatform platform_;
};

TEST_F(TargetDimensions, OfAPlainJobAreThoseOfTheTargetPaperFirst) {
  EXPECT_EQ(plainLines({{"QVTargetPaperSize", "A5"}, {kPaper, "A3"}, {"media", "B5"}}),
            lines("14800", "21000"));
}

TEST_F(TargetDimensions, OfThePaperThatIsTheSameAsTheOriginalAreThoseOfTheMappedPaper) {
  EXPECT_EQ(plainLines({{"QVTargetPaperSize", "SameAsOriginal"}, {kPaper, "A5"}, {"media", "B5"}}),
            lines("14800", "21000"));
}

TEST_F(TargetDimensions, OfACustomMappedPaperAreItsSize) {
  EXPECT_EQ(plainLines({{kPaper, "Custom.595x842"}}), lines("21000", "29700"));
}

TEST_F(TargetDimensions, OfACustomMappedPaperWithoutAHeightAreZeroThere) {
  EXPECT_EQ(plainLines({{kPaper, "Custom.100x"}}), lines("3500", "0"));
  EXPECT_EQ(plainLines({{kPaper, "Custom"}}), lines("0", "0"));
}

TEST_F(TargetDimensions, WithoutATargetAndAMappedPaperAreThoseOfTheMedia) {
  EXPECT_EQ(plainLines({{"media", "B5"}}), lines("18200", "25700"));
  EXPECT_EQ(platform_.systemLog.messages.front(),
            "[DEBUG]NotPDE_PageSize width=18200, height=25700");
}

TEST_F(TargetDimensions, OfAPlainJobAreEmptyForACustomTarget) {
  EXPECT_EQ(plainLines({{"QVTargetPaperSize", "Custom"}, {kPaper, "A5"}}), lines("", ""));
}

TEST_F(TargetDimensions, OfADialogJobWithoutSizesAreThoseOfTheMediaAlone) {
  const Options options = {{"QVTargetPaperSize", "A5"}, {kPaper, "A3"}, {"media", "B5"}};
  EXPECT_EQ(dialog(Output_QVTARGETPAPERSIZEWIDTH, options),
            "@PJL SET QVTARGETPAPERSIZEWIDTH=18200\n");
  EXPECT_EQ(dialog(Output_QVTARGETPAPERSIZEHEIGHT, options),
            "@PJL SET QVTARGETPAPERSIZEHEIGHT=25700\n");
}

TEST(OutputBox, IsInUpperCase) {
  EXPECT_EQ(dialog(Output_QVOUTPUTBOX, {{"QVPageOutputBoxPSValue", "SharedBox2"}}),
            "@PJL SET QVOUTPUTBOX=SHAREDBOX2\n");
  EXPECT_EQ(plain(Output_QVOUTPUTBOX, {{"QVOutputBox", "Personal"}}),
            "@PJL SET QVOUTPUTBOX=PERSONAL\n");
}

TEST(OutputBox, WithoutTheOptionIsTheFirstSharedBoxForPlainJobsOnly) {
  EXPECT_EQ(plain(Output_QVOUTPUTBOX, {{"QVPageOutputBoxPSValue", "a"}}),
            "@PJL SET QVOUTPUTBOX=SHAREDBOX1\n");
  EXPECT_EQ(dialog(Output_QVOUTPUTBOX, {{"QVOutputBox", "a"}}), "@PJL SET QVOUTPUTBOX=\n");
}

TEST(PageTrayRepeat, IsTheText) {
  EXPECT_EQ(dialog(Output_QVPAGETRAYREPEAT,
                   {{"QVPageTrayRepeatButtonValue", "1"}, {"QVPageTrayRepeatTextValue", "5"}}),
            "@PJL SET QVPAGETRAYREPEAT=5\n");
  EXPECT_EQ(dialog(Output_QVPAGETRAYREPEAT, {{"QVPageTrayRepeatTextValue", "5"}}),
            "@PJL SET QVPAGETRAYREPEAT=5\n");
}

TEST(PageTrayRepeat, IsZeroForAButtonThatContainsAZero) {
  EXPECT_EQ(dialog(Output_QVPAGETRAYREPEAT,
                   {{"QVPageTrayRepeatButtonValue", "10"}, {"QVPageTrayRepeatTextValue", "5"}}),
            "@PJL SET QVPAGETRAYREPEAT=0\n");
}

TEST(PageTrayRepeat, IsZeroWithoutAText) {
  EXPECT_EQ(dialog(Output_QVPAGETRAYREPEAT), "@PJL SET QVPAGETRAYREPEAT=0\n");
  EXPECT_EQ(dialog(Output_QVPAGETRAYREPEAT, {{"QVPageTrayRepeatButtonValue", "1"}}),
            "@PJL SET QVPAGETRAYREPEAT=0\n");
}

}  // namespace
}  // namespace kelm::pjl
