// What cupsd makes of a job's options before the filter sees them.
// SPDX-License-Identifier: Apache-2.0
#include "explain/request.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "explain/media_col.hpp"
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

TEST_F(RequestOptions, MembersOfMediaColThatAskForNothing) {
  const auto problem = [](const char* mediaCol) {
    const auto remark = remarkOnMediaCol({nullptr, {{"media-col", mediaCol}}, 1, "report"});
    return remark ? remark->problem : "";
  };
  EXPECT_EQ(problem("{media-size={x-dimension=14800 y-dimension=21000} media-source=tray-2}"), "");
  EXPECT_EQ(problem("{media-type=stationery media-top-margin=0}"), "");
  EXPECT_EQ(problem("{media-size-name=iso_a5_148x210mm}"),
            "has the member \"media-size-name\", which CUPS ignores");
  EXPECT_EQ(problem("A5"), "has the member \"A5\", which CUPS ignores");
  EXPECT_EQ(problem("{media-size={x-dimension=14800}}"),
            "has a media-size without x-dimension and y-dimension");
  EXPECT_EQ(problem("{}"), "has no media-size, media-source or media-type");
  EXPECT_FALSE(remarkOnMediaCol({nullptr, {}, 1, "report"}).has_value());
}

TEST_F(RequestOptions, CopiesAreNoOption) {
  Request request{ppd(), parsedOptions({"copies=3", "QVDuplex=LongEdge"}), 1, "report"};
  EXPECT_TRUE(takeCopies(request, false));
  EXPECT_EQ(request.copies, 3);
  EXPECT_EQ(request.copiesName, "copies");
  EXPECT_EQ(request.options, (std::vector<Option>{{"QVDuplex", "LongEdge"}}));
  addDefaults(request, {{"copies", "5", Giver::kQueue}}, true);
  EXPECT_EQ(request.copies, 3);
}

TEST_F(RequestOptions, CopiesDoNotCountBesideAnotherNumber) {
  Request request{ppd(), parsedOptions({"copies=3"}), 2, "report"};
  EXPECT_TRUE(takeCopies(request, true));
  EXPECT_EQ(request.copies, 2);
  EXPECT_EQ(request.copiesName, "-n");
  Request without{ppd(), {}, 1, "report"};
  EXPECT_FALSE(takeCopies(without, false));
  EXPECT_TRUE(takeCopies(without, true));
}

}  // namespace
}  // namespace kelm::explain
