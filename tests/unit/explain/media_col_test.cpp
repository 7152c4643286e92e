// Remarks on members of media-col without an effect, with what was probably meant.
// SPDX-License-Identifier: Apache-2.0
#include "explain/media_col.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "job/ppd_calls.hpp"
#include "platform/fake/fake_platform.hpp"
#include "tests/support/temporary_directory.hpp"

namespace kelm::explain {
namespace {

using Words = std::vector<std::string>;

class MediaCol : public testing::Test {
 protected:
  ~MediaCol() override { job::r_ppdClose(ppd_); }

  // The only remark on a media-col, or an empty one.
  Remark remarkOn(const std::string& mediaCol) { return remarkOn(ppd_, mediaCol); }

  static Remark remarkOn(ppd_file_t* ppd, const std::string& mediaCol) {
    const auto remarks = remarksOnMediaCol({ppd, {{"media-col", mediaCol}}, 1, "report"});
    EXPECT_LE(remarks.size(), 1U) << mediaCol;
    return remarks.empty() ? Remark{} : remarks.front();
  }

  ppd_file_t* ppd() const { return ppd_; }

 private:
  platform::FakePlatform platform_;
  ppd_file_t* ppd_ = job::r_ppdOpenFile(KELM_DIALOG_PPD);
};

TEST_F(MediaCol, IsRight) {
  for (const char* mediaCol :
       {"{media-size={x-dimension=14800 y-dimension=21000} media-source=tray-2}",
        "{media-type=stationery media-top-margin=0}",
        "{media-size={x-dimension=20000 y-dimension=30000}}", "{media-source=TRAY-2}",
        "{media-source=auto}", "{media-source=large-capacity media-type=cardstock}"}) {
    EXPECT_EQ(remarkOn(mediaCol).problem, "") << mediaCol;
  }
  EXPECT_TRUE(remarksOnMediaCol({ppd(), {}, 1, "report"}).empty());
}

TEST_F(MediaCol, HasMembersThatCupsIgnores) {
  EXPECT_EQ(remarkOn("{media-size-name=iso_a5_148x210mm}").problem,
            "has the member \"media-size-name\", which CUPS ignores");
  EXPECT_EQ(remarkOn("A5").problem, "has the member \"A5\", which CUPS ignores");
  EXPECT_EQ(remarkOn("{media-size={x-dimension=14800}}").problem,
            "has a media-size without x-dimension and y-dimension");
  EXPECT_EQ(remarkOn("{}").problem, "has no media-size, media-source or media-type");
}

TEST_F(MediaCol, HasATrayThatThePrinterDoesNotHave) {
  const Remark remark = remarkOn("{media-source=tray-4}");
  EXPECT_EQ(remark.problem, "has the media-source \"tray-4\", which CUPS ignores");
  EXPECT_EQ(remark.choices, (Words{"auto", "tray-1", "tray-2", "tray-3", "main", "large-capacity",
                                   "external-feeder"}));
  EXPECT_EQ(remark.nearest, "tray-1");
  EXPECT_EQ(remarkOn("{media-source=envelope}").nearest, "");
}

// "media" takes the PPD's names, too. In media-col, CUPS 2.4.10 knows them and CUPS 2.4.2 does not.
TEST_F(MediaCol, HasATrayUnderANameThatCupsDoesNotKnow) {
  EXPECT_EQ(remarkOn("{media-source=Tray_2}").nearest, "tray-2");
  EXPECT_EQ(remarkOn("{media-source=feed-tray-2}").problem,
            "has the media-source \"feed-tray-2\", which CUPS ignores");
  EXPECT_EQ(remarkOn("{media-source=tray-1,tray-2}").choices.size(), 7U);
}

TEST_F(MediaCol, HasAPaperTypeThatThePrinterDoesNotHave) {
  const Remark remark = remarkOn("{media-type=stationary}");
  EXPECT_EQ(remark.problem, "has the media-type \"stationary\", which CUPS ignores");
  EXPECT_EQ(remark.nearest, "stationery");
  EXPECT_EQ(remark.choices.front(), "auto");
}

TEST_F(MediaCol, HasASizeThatThePrinterDoesNotHave) {
  const Remark remark = remarkOn("{media-size={x-dimension=99900 y-dimension=9999}}");
  EXPECT_EQ(remark.problem,
            "has a media-size of 999 x 99.99 mm, which the printer does not have; a paper of its "
            "own size is 90 to 550 mm wide and 90 to 550 mm high");
  EXPECT_EQ(remark.choices.front(), "Letter");
  EXPECT_EQ(remark.nearest, "");
}

// Without custom sizes, a size must be within 5 points of a paper.
TEST_F(MediaCol, HasASizeThatIsNearToAPaper) {
  const tests::TemporaryDirectory directory;
  const std::string path = directory.path() / "fixed.ppd";
  std::string text = tests::readFile(KELM_PPDS_DIR "/explain.ppd").value();
  for (const std::string line : {"*VariablePaperSize: True\n", "*CustomPageSize True"}) {
    text.replace(text.find(line), 1, "*%");
  }
  tests::writeFile(path, text);
  ppd_file_t* fixed = job::r_ppdOpenFile(path.c_str());
  const Remark remark = remarkOn(fixed, "{media-size={x-dimension=22000 y-dimension=30000}}");
  EXPECT_EQ(remark.problem, "has a media-size of 220 x 300 mm, which the printer does not have");
  EXPECT_EQ(remark.choices, (Words{"A4", "A3"}));
  EXPECT_EQ(remark.nearest, "A4");
  job::r_ppdClose(fixed);
}

TEST_F(MediaCol, HasSeveralMistakes) {
  const auto remarks = remarksOnMediaCol(
      {ppd(), {{"media-col", "{media-source=tray-9 media-type=wood}"}}, 1, "report"});
  EXPECT_EQ(remarks.size(), 2U);
}

TEST_F(MediaCol, IsJudgedByItsMembersWithoutAPpd) {
  EXPECT_EQ(remarkOn(nullptr, "{media-source=tray-99}").problem, "");
  EXPECT_EQ(remarkOn(nullptr, "{x=1}").problem, "has the member \"x\", which CUPS ignores");
}

}  // namespace
}  // namespace kelm::explain
