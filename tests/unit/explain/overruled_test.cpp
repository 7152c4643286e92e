// Remarks on options that another option of the job overrides.
// SPDX-License-Identifier: Apache-2.0
#include "explain/overruled.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "job/ppd_calls.hpp"
#include "platform/fake/fake_platform.hpp"

namespace kelm::explain {
namespace {

class Overruled : public testing::Test {
 protected:
  ~Overruled() override { job::r_ppdClose(ppd_); }

  // "OPTION PROBLEM", one line each.
  std::string remarksOn(std::vector<Option> options, int copies = 1) {
    std::vector<Remark> remarks;
    const Request request{ppd_, std::move(options), copies, "report"};
    outcomeOf(request);
    addOverruled(request, remarks);
    std::string text;
    for (const Remark& remark : remarks) {
      text += remark.option.name + "=" + remark.option.value + " " + remark.problem + "\n";
    }
    return text;
  }

  std::string remarksOn(const std::string& words, int copies = 1) {
    return remarksOn(parsedOptions({words}), copies);
  }

 private:
  platform::FakePlatform platform_;
  ppd_file_t* ppd_ = job::r_ppdOpenFile(KELM_DIALOG_PPD);
};

TEST_F(Overruled, ByTheOwnOption) {
  EXPECT_EQ(remarksOn("sides=two-sided-long-edge QVDuplex=ShortEdge"),
            "sides=two-sided-long-edge has no effect, because QVDuplex=ShortEdge overrides it\n");
  EXPECT_EQ(remarksOn("QVInputSlot=FeedTray1 InputSlot=Tray2"),
            "InputSlot=Tray2 has no effect, because QVInputSlot=FeedTray1 overrides it\n");
}

TEST_F(Overruled, ByTheOneOfSeveralThatIsForTheSameThing) {
  EXPECT_EQ(remarksOn({{"MediaType", "Plain"},
                       {"sides", "two-sided-long-edge"},
                       {"QVStapleMode", "OneStaple"},
                       {"QVDuplex", "ShortEdge"}}),
            "sides=two-sided-long-edge has no effect, because QVDuplex=ShortEdge overrides it\n");
}

// The option that wins asks for the default.
TEST_F(Overruled, ByADefault) {
  EXPECT_EQ(remarksOn("sides=two-sided-long-edge Duplex=None"),
            "sides=two-sided-long-edge has no effect, because Duplex=None overrides it\n");
}

TEST_F(Overruled, ByFinishings) {
  EXPECT_EQ(remarksOn("QVStapleMode=TwoStaple finishings=4"),
            "QVStapleMode=TwoStaple has no effect, because finishings=4 overrides it\n");
}

TEST_F(Overruled, ByAnotherPaper) {
  EXPECT_EQ(remarksOn("PageRegion=A5 PageSize=A3"),
            "PageRegion=A5 has no effect, because PageSize=A3 overrides it\n");
  EXPECT_EQ(remarksOn("media=A3 media-col={media-size={x-dimension=14800 y-dimension=21000}}"),
            "media-col={media-size={x-dimension=14800 y-dimension=21000}} has no effect, because "
            "media=A3 overrides it\n");
  EXPECT_EQ(remarksOn("media=A99 media-col={media-size={x-dimension=14800 y-dimension=21000}}"),
            "");
}

TEST_F(Overruled, InPart) {
  EXPECT_EQ(remarksOn("media=A3,tray-1 media-col={media-source=tray-2}"),
            "media=A3,tray-1 asks for \"tray-1\" without effect, because "
            "media-col={media-source=tray-2} overrides it\n");
  EXPECT_EQ(remarksOn("media=A3 media-col={media-size={x-dimension=14800 y-dimension=21000} "
                      "media-source=tray-2}"),
            "media-col={media-size={x-dimension=14800 y-dimension=21000} media-source=tray-2} asks "
            "for media-size without effect, because media=A3 overrides it\n");
}

TEST_F(Overruled, NotByTheSameChoice) {
  for (const char* words :
       {"sides=two-sided-long-edge QVDuplex=LongEdge", "media=A3 PageSize=A3 PageRegion=A3",
        "InputSlot=Tray2 media=A4,tray-2 media-col={media-source=tray-2}",
        "finishings=4 QVStapleMode=OneStaple"}) {
    EXPECT_EQ(remarksOn(words), "") << words;
  }
}

// Dialogs also send options that were left at their defaults.
TEST_F(Overruled, NotWhereItAsksForNothing) {
  EXPECT_EQ(remarksOn("QVDuplex=OFF Duplex=DuplexNoTumble QVInputSlot=Auto InputSlot=Tray2"), "");
}

TEST_F(Overruled, NotWhereALineOfItIsLeft) {
  EXPECT_EQ(remarksOn("QVOutputTray=Stacker QVOutputFace=FaceDown"), "");
}

// The sheets of a booklet flip on the short edge.
TEST_F(Overruled, ByABooklet) {
  EXPECT_EQ(remarksOn("QVDuplex=LongEdge QVBookletBinding=TwoFold"),
            "QVDuplex=LongEdge has no effect, because QVBookletBinding=TwoFold overrides it\n");
}

TEST_F(Overruled, OnlyWithSeveralCopies) {
  EXPECT_EQ(remarksOn("QVCollate=False Collate=True", 2), "");
  EXPECT_EQ(remarksOn("multiple-document-handling=separate-documents-uncollated-copies", 2), "");
}

TEST_F(Overruled, OnlyIfThePersonAskedForIt) {
  const Option sides{"sides", "two-sided-long-edge", Giver::kQueue};
  EXPECT_EQ(remarksOn({sides, {"QVDuplex", "ShortEdge"}}), "");
  EXPECT_EQ(remarksOn({{"sides", "two-sided-long-edge"}, {"QVDuplex", "ShortEdge", Giver::kQueue}}),
            "sides=two-sided-long-edge has no effect, because QVDuplex=ShortEdge overrides it\n");
}

TEST_F(Overruled, NotInJobsOfTheDialog) {
  EXPECT_EQ(remarksOn("PrintPDE=1 sides=two-sided-long-edge QVDuplex=ShortEdge"), "");
}

TEST_F(Overruled, NotWithoutAPpd) {
  const Request request{nullptr, parsedOptions({"sides=one-sided QVDuplex=ShortEdge"}), 1,
                        "report"};
  std::vector<Remark> none;
  addOverruled(request, none);
  EXPECT_TRUE(none.empty());
}

}  // namespace
}  // namespace kelm::explain
