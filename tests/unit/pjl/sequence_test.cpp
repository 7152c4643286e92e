// The whole header: its lines in their order, with the values of a job without options.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/sequence.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/fake/fake_platform.hpp"
#include "tests/unit/pjl/lines.hpp"

namespace kelm::pjl {
namespace {

// A file in tests/cases/. The headers of jobs without options are the base headers of the golden
// cases.
std::string baseHeader(const char* name) {
  std::ifstream file(std::string(KELM_SOURCE_DIR "/tests/cases/") + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class Header : public testing::Test {
 protected:
  Header() { platform_.computerName.computer = "kelm-test"; }

  static std::string header(const Options& options) {
    TestJob job(options);
    job->jobNameHex = "6A6F62";
    MemoryOutput output;
    OutputPJL(output.stream(), *job);
    return output.text();
  }

  static bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
  }

  platform::FakePlatform platform_;
  const std::string plain_ = baseHeader("plain.pjl");
  const std::string dialog_ = baseHeader("dialog.pjl");
};

TEST_F(Header, OfAJobWithoutOptionsHasEveryLineButThoseOfTheDialog) {
  EXPECT_EQ(header({}), plain_);
}

TEST_F(Header, OfADialogJobWithoutFurtherOptionsHasThoseOfTheDialogToo) {
  EXPECT_EQ(header({{"PrintPDE", ""}}), dialog_);
  EXPECT_EQ(header({{"PrintPDE", "false"}}), dialog_);
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
  EXPECT_EQ(text, plain_);
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
  EXPECT_EQ(header(options), plain_);
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

}  // namespace
}  // namespace kelm::pjl
