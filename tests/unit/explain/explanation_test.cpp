// What would be sent for a job: the meanings and sources of its header's lines.
// SPDX-License-Identifier: Apache-2.0
#include "explain/explanation.hpp"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "tests/unit/explain/explained_job.hpp"

namespace kelm::explain {
namespace {

using tests::ExplainedJob;
using Options = std::vector<Option>;

TEST(Explanation, NamesTheJobsOption) {
  const ExplainedJob job({"QVStapleMode=OneStaple"});
  const Line line = job.line("QVSTAPLEMODE");
  EXPECT_EQ(line.value, "1STAPLE");
  EXPECT_EQ(line.label.name, "Staple");
  EXPECT_EQ(line.label.choice, "One, top left");
  EXPECT_EQ(line.label.group, "Finishing");
  EXPECT_EQ(line.origin, Origin::kJob);
  EXPECT_EQ(line.causes, (Options{{"QVStapleMode", "OneStaple"}}));
  EXPECT_TRUE(line.changed);
}

TEST(Explanation, NamesAnOptionThatIsTheDefaultAnyway) {
  const ExplainedJob job({"QVStapleMode=OFF"});
  const Line line = job.line("QVSTAPLEMODE");
  EXPECT_EQ(line.label.choice, "Off");
  EXPECT_EQ(line.causes, (Options{{"QVStapleMode", "OFF"}}));
  EXPECT_FALSE(line.changed);
}

TEST(Explanation, NamesTheDefaultOfTheTable) {
  const Line line = ExplainedJob({}).line("QVSTAPLEMODE");
  EXPECT_EQ(line.value, "OFF");
  EXPECT_EQ(line.origin, Origin::kTableDefault);
  EXPECT_FALSE(line.changed);
}

TEST(Explanation, NamesTheDefaultOfThePpd) {
  const Line line = ExplainedJob({}).line("DUPLEX");
  EXPECT_EQ(line.value, "OFF");
  EXPECT_EQ(line.origin, Origin::kPpdDefault);
}

TEST(Explanation, NamesTheJobsTitle) {
  const Line line = ExplainedJob({}).line("JOBNAME");
  EXPECT_EQ(line.value, "7265706F7274");
  EXPECT_EQ(line.label.choice, "report");
  EXPECT_EQ(line.origin, Origin::kJobTitle);
}

TEST(Explanation, MarksAChoiceThatThePrinterDoesNotHave) {
  const Line line = ExplainedJob({"QVStapleMode=Three"}).line("QVSTAPLEMODE");
  EXPECT_EQ(line.value, "");
  EXPECT_EQ(line.origin, Origin::kNoSuchChoice);
  EXPECT_EQ(line.causes, (Options{{"QVStapleMode", "Three"}}));
}

TEST(Explanation, NamesEveryOptionThatALineNeeds) {
  const ExplainedJob job({"QVDuplex=LongEdge QVBookletBinding=TwoFold"});
  const Line line = job.line("BINDING");
  EXPECT_EQ(line.value, "SHORTEDGE");
  EXPECT_EQ(line.causes, (Options{{"QVBookletBinding", "TwoFold"}, {"QVDuplex", "LongEdge"}}));
}

// With the tray alone the face would be up; with QVOutputFace it is down.
TEST(Explanation, NamesNoOptionThatALineDoesNotNeed) {
  const Line line =
      ExplainedJob({"QVOutputTray=Stacker QVOutputFace=FaceDown"}).line("QVOUTPUTFACE");
  EXPECT_EQ(line.value, "FACEDOWN");
  EXPECT_EQ(line.causes, (Options{{"QVOutputFace", "FaceDown"}}));
}

TEST(Explanation, DecodesACustomText) {
  const ExplainedJob job({"QVJobComment='Custom.For the board'"});
  const Line line = job.line("QVJOBCOMMENT");
  EXPECT_EQ(line.value, "466F722074686520626F617264");
  EXPECT_EQ(line.label.name, "Job comment");
  EXPECT_EQ(line.label.choice, "For the board");
}

TEST(Explanation, GivesLengthsInMillimetres) {
  const Line line = ExplainedJob({"media=A3"}).line("QVPAGESIZEWIDTH");
  EXPECT_EQ(line.value, "29700");
  EXPECT_EQ(line.label.choice, "297 mm");
  EXPECT_EQ(line.causes, (Options{{"media", "A3"}}));
}

TEST(Explanation, DoesNotTakeTheDialogsMarkForACause) {
  const Line line = ExplainedJob({"PrintPDE=1 QVHideJob=ON"}).line("QVHIDEJOB");
  EXPECT_EQ(line.causes, (Options{{"QVHideJob", "ON"}}));
  EXPECT_EQ(ExplainedJob({"PrintPDE=1"}).line("QVHIDEJOB").origin, Origin::kTableDefault);
}

TEST(Request, TakesDefaultsThatTheJobDoesNotName) {
  Request request;
  request.options = {{"qvjog", "Job"}};
  addDefaults(request,
              {{"QVJog", "Set", Giver::kUserDefaults},
               {"QVDuplex", "LongEdge", Giver::kHostDefaults},
               {"copies", "3", Giver::kQueue}},
              false);
  EXPECT_EQ(request.options, (Options{{"qvjog", "Job"}, {"QVDuplex", "LongEdge"}}));
  EXPECT_EQ(request.options.back().giver, Giver::kHostDefaults);
  EXPECT_EQ(request.copies, 3);
  EXPECT_EQ(request.copiesGiver, Giver::kQueue);
  addDefaults(request, {{"copies", "5"}}, true);
  EXPECT_EQ(request.copies, 3);
}

// "NAME: CHOICE" for each variable in the stream of a job with these options. Before that, one
// variable may get another value.
std::map<std::string, std::string> namesInStream(const std::string& options,
                                                 const std::string& variable = "",
                                                 const std::string& value = "") {
  const platform::FakePlatform platform;
  ppd_file_t* ppd = job::r_ppdOpenFile(KELM_PPDS_DIR "/explain.ppd");
  StreamReport report;
  report.header = outcomeOf({ppd, parsedOptions({options}), 1, "report"}).header;
  for (pjl::RecordedLine& line : report.header) {
    if (!variable.empty() && line.variable == variable) line.value = value;
  }
  std::map<std::string, std::string> names;
  for (const Line& line : linesOf(report, ppd)) {
    names[line.variable] = line.label.name + ": " + line.label.choice;
  }
  job::r_ppdClose(ppd);
  return names;
}

// A stream does not say whether the standard option or the own one was used.
TEST(LinesOfAStream, HaveTheNamesOfStandardOptions) {
  EXPECT_EQ(namesInStream("QVInputSlot=FeedTray2")["MEDIASOURCE"], "Paper source: Tray 2");
  EXPECT_EQ(namesInStream("")["MEDIASOURCE"], "Paper source: Automatic");
}

// In this PPD, the standard option does not have the tray.
TEST(LinesOfAStream, HaveTheNameOfAnOwnOptionThatAloneHasTheChoice) {
  EXPECT_EQ(namesInStream("QVInputSlot=StandardTray")["MEDIASOURCE"],
            "Paper source (override): Standard tray");
}

TEST(LinesOfAStream, NameTheChoiceThatAnotherLineOfTheOptionHas) {
  EXPECT_EQ(namesInStream("QVInputSlot=FeedTray2")["AUTOSELECT"], "Paper source: Tray 2");
  EXPECT_EQ(namesInStream("QVDuplex=ShortEdge")["DUPLEX"], "Two-sided printing: Short edge");
}

TEST(LinesOfAStream, NameNoChoiceThatTheLinesDoNotHaveTogether) {
  EXPECT_EQ(namesInStream("QVInputSlot=FeedTray2", "MEDIASOURCE", "AUTO")["AUTOSELECT"],
            "Paper source: OFF");
  EXPECT_EQ(namesInStream("QVDuplex=ShortEdge", "BINDING", "OFF")["DUPLEX"],
            "Two-sided printing: ON");
}

TEST(Explanation, HasEveryLineOfTheHeader) {
  const ExplainedJob plain({});
  EXPECT_EQ(plain.explanation.lines.front().value, "\x1B%-12345X@PJL");
  EXPECT_EQ(plain.explanation.lines.back().value, "@PJL ENTER LANGUAGE=POSTSCRIPT");
  for (const Line& line : plain.explanation.lines) EXPECT_FALSE(line.changed) << line.variable;
}

}  // namespace
}  // namespace kelm::explain
