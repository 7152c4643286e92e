// What cupsd makes of a job's options before the filter sees them.
// SPDX-License-Identifier: Apache-2.0
#include "explain/request.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "job/ppd_calls.hpp"
#include "platform/fake/fake_platform.hpp"

namespace kelm::explain {
namespace {

class RequestOptions : public testing::Test {
 protected:
  ~RequestOptions() override { job::r_ppdClose(ppd_); }

  // "VALUE VALUE ..." of these variables, as the printer gets them.
  std::string header(const std::vector<std::string>& words,
                     const std::vector<std::string>& variables) {
    const Outcome outcome = outcomeOf({ppd_, parsedOptions(words), 1, "report"});
    std::string values;
    for (const std::string& variable : variables) {
      for (const pjl::RecordedLine& line : outcome.header) {
        if (line.variable == variable) values += (values.empty() ? "" : " ") + line.value;
      }
    }
    return values;
  }

  std::string paper(const std::vector<std::string>& words) {
    return header(words, {"QVPAGESIZE", "QVPAGESIZEWIDTH", "QVPAGESIZEHEIGHT"});
  }

  ppd_file_t* ppd() const { return ppd_; }

 private:
  platform::FakePlatform platform_;
  ppd_file_t* ppd_ = job::r_ppdOpenFile(KELM_DIALOG_PPD);
};

TEST_F(RequestOptions, FinishingsCountBeforeTheOwnOption) {
  const std::vector<std::string> variables = {"QVSTAPLEMODE", "QVPUNCHMODE"};
  EXPECT_EQ(header({"finishings=4", "QVStapleMode=TwoStaple"}, variables), "1STAPLE OFF");
  EXPECT_EQ(header({"QVStapleMode=TwoStaple", "finishings=4"}, variables), "1STAPLE OFF");
  EXPECT_EQ(header({"QVStapleMode=TwoStaple", "finishings=74"}, variables), "2STAPLES 2HOLES");
  EXPECT_EQ(header({"QVStapleMode=TwoStaple", "finishings=20,78"}, variables),
            "1STAPLELEFT 3HOLES");
  EXPECT_EQ(header({"QVStapleMode=TwoStaple", "finishings=3"}, variables), "2STAPLES OFF");
}

TEST_F(RequestOptions, TheSizeOfMediaColIsThePaper) {
  EXPECT_EQ(paper({"media-col={media-size={x-dimension=14800 y-dimension=21000}}"}),
            "A5 14800 21000");
  EXPECT_EQ(paper({"media-col={media-size={x-dimension=20000 y-dimension=30000}}"}),
            "CUSTOMSIZE 20000 30000");
}

TEST_F(RequestOptions, ACustomSizeThatFitsAPaperIsThatPaper) {
  EXPECT_EQ(paper({"media=Custom.21x29.7cm"}), "A4 21000 29700");
  EXPECT_EQ(paper({"media=Custom.8.5x13in"}), "PHLEGAL 21600 33000");
  EXPECT_EQ(paper({"media=Custom.148x210mm,Tray2"}), "A5 14800 21000");
  EXPECT_EQ(paper({"media=Custom.20x30cm"}), "CUSTOMSIZE 20000 30000");
  EXPECT_EQ(paper({"media=Custom.1x1in"}), "CUSTOMSIZE 2500 2500");
  EXPECT_EQ(paper({"media=Custom.597x845"}), "A4 21000 29700");
  EXPECT_EQ(paper({"media=Custom.21x29.7cm", "PageSize=A3"}), "A3 29700 42000");
  EXPECT_EQ(paper({"PageSize=Custom.21x29.7cm"}), "CUSTOMSIZE 21000 29700");
}

TEST_F(RequestOptions, ThePageSizeCountsBeforeMediaCol) {
  const std::string mediaCol = "media-col={media-size={x-dimension=14800 y-dimension=21000}}";
  EXPECT_EQ(paper({mediaCol, "PageSize=A3"}), "A3 29700 42000");
  EXPECT_EQ(paper({mediaCol, "media=A3"}), "A3 29700 42000");
}

TEST_F(RequestOptions, AMediaColWithoutASizeAsksForNoPaper) {
  for (const char* mediaCol :
       {"media-col={}", "media-col=", "media-col={media-size={x-dimension=14800}}",
        "media-col={media-size={x-dimension=0 y-dimension=-1}}",
        "media-col={media-size-name=iso_a5_148x210mm}", "media-col={media-size={"}) {
    EXPECT_EQ(paper({mediaCol}), "A4 21000 29700") << mediaCol;
  }
}

TEST_F(RequestOptions, MediaColNamesTheTrayAndThePaperType) {
  const std::vector<std::string> variables = {"MEDIASOURCE", "MEDIATYPE"};
  const std::string mediaCol = "media-col={media-source=tray-2 media-type=stationery}";
  EXPECT_EQ(header({mediaCol}, variables), "TRAY2 STANDARD");
  EXPECT_EQ(header({mediaCol, "InputSlot=Tray3"}, variables), "TRAY3 STANDARD");
  EXPECT_EQ(header({mediaCol, "MediaType=IJPaper"}, variables), "TRAY2 HC");
  EXPECT_EQ(header({"media-col={media-source=tray-99}"}, variables), "AUTO AUTO");
}

// cupsd looks for a paper only in the first word of "media", and ignores a custom size there.
TEST_F(RequestOptions, TheFirstWordOfMediaCountsBeforeMediaCol) {
  const std::string mediaCol = "media-col={media-size={x-dimension=14800 y-dimension=21000}}";
  for (const char* media : {"media=A3,tray-1", "media=a3", "media=iso_a3_297x420mm"}) {
    EXPECT_EQ(paper({mediaCol, media}), "A3 29700 42000") << media;
  }
  for (const char* media : {"media=tray-1,A3", "media=tray-1", "media=A99", "media=Custom.300x400",
                            "media=custom_x_297x420mm"}) {
    EXPECT_EQ(paper({mediaCol, media}), "A5 14800 21000") << media;
  }
}

TEST_F(RequestOptions, MediaColCountsBeforeTheTrayOfMedia) {
  const std::vector<std::string> variables = {"QVPAGESIZE", "MEDIASOURCE", "MEDIATYPE"};
  const std::string mediaCol = "media-col={media-source=tray-2 media-type=stationery}";
  EXPECT_EQ(header({mediaCol, "media=A3,tray-1,cardstock"}, variables), "A3 TRAY2 STANDARD");
  EXPECT_EQ(header({mediaCol, "QVInputSlot=FeedTray3"}, variables), "A4 TRAY3 STANDARD");
  EXPECT_EQ(header({"media-col={media-source=tray-99}", "media=tray-1"}, variables),
            "A4 TRAY1 AUTO");
}

TEST_F(RequestOptions, CopiesAreNoOption) {
  Request request{ppd(), parsedOptions({"copies=3", "QVDuplex=LongEdge"}), 1, "report"};
  EXPECT_TRUE(takeCopies(request, false, true));
  EXPECT_EQ(request.copies, 3);
  EXPECT_EQ(request.copiesName, "copies");
  EXPECT_FALSE(request.overruledCopies.has_value());
  EXPECT_EQ(request.options, (std::vector<Option>{{"QVDuplex", "LongEdge"}}));
  addDefaults(request, {{"copies", "5", Giver::kQueue}}, true);
  EXPECT_EQ(request.copies, 3);
}

TEST_F(RequestOptions, CopiesDoNotCountBeforeAnotherNumber) {
  Request request{ppd(), parsedOptions({"copies=3"}), 2, "report"};
  EXPECT_TRUE(takeCopies(request, true, false));
  EXPECT_EQ(request.copies, 2);
  EXPECT_EQ(request.copiesName, "-n");
  EXPECT_EQ(request.overruledCopies, (Option{"copies", "3"}));
  Request without{ppd(), {}, 1, "report"};
  EXPECT_FALSE(takeCopies(without, false, false));
  EXPECT_TRUE(takeCopies(without, true, false));
}

TEST_F(RequestOptions, CopiesCountAfterAnotherNumber) {
  Request request{ppd(), parsedOptions({"copies=3"}), 2, "report"};
  EXPECT_TRUE(takeCopies(request, true, true));
  EXPECT_EQ(request.copies, 3);
  EXPECT_EQ(request.copiesName, "copies");
  EXPECT_EQ(request.overruledCopies, (Option{"-n", "2"}));
}

TEST_F(RequestOptions, TheSameNumberOfCopiesOverrulesNothing) {
  Request request{ppd(), parsedOptions({"copies=2"}), 2, "report"};
  EXPECT_TRUE(takeCopies(request, true, true));
  EXPECT_FALSE(request.overruledCopies.has_value());
}

}  // namespace
}  // namespace kelm::explain
