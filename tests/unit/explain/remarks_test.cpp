// Remarks on wrong options, with what was probably meant.
// SPDX-License-Identifier: Apache-2.0
#include "explain/remarks.hpp"

#include <gtest/gtest.h>

#include <utility>

#include "tests/support/temporary_directory.hpp"
#include "tests/unit/explain/explained_job.hpp"

namespace kelm::explain {
namespace {

using tests::ExplainedJob;

// The only remark on a job with these options, or an empty one.
Remark remarkOn(const std::string& options) {
  const ExplainedJob job({options});
  EXPECT_LE(job.explanation.remarks.size(), 1U);
  return job.explanation.remarks.empty() ? Remark{} : job.explanation.remarks.front();
}

TEST(Remarks, PassOptionsThatAreRight) {
  EXPECT_EQ(remarkOn("QVStapleMode=OneStaple sides=two-sided-long-edge media=A4 PageSize=A4 "
                     "job-priority=50 QVJobComment=Custom.Hello number-up=2")
                .problem,
            "");
}

TEST(Remarks, NameAnUnknownOption) {
  const Remark remark = remarkOn("QVStaplMode=OneStaple");
  EXPECT_EQ(remark.problem, "is not an option of this printer");
  EXPECT_EQ(remark.nearest, "QVStapleMode");
}

TEST(Remarks, NameOtherCapitalLetters) {
  EXPECT_EQ(remarkOn("qvstaplemode=OneStaple").nearest, "QVStapleMode");
}

TEST(Remarks, NameAnUnknownChoiceWithTheChoicesThereAre) {
  const Remark remark = remarkOn("QVStapleMode=OneStable");
  EXPECT_EQ(remark.problem, "is not a choice of this option");
  EXPECT_EQ(remark.choices, (std::vector<std::string>{"OFF", "OneStaple", "TwoStaple"}));
  EXPECT_EQ(remark.nearest, "OneStaple");
}

TEST(Remarks, NameNoNearestChoiceWhereNoneIsNear) {
  EXPECT_EQ(remarkOn("QVStapleMode=Everywhere").nearest, "");
}

TEST(Remarks, NameALongText) {
  EXPECT_EQ(remarkOn("QVJobComment=Custom." + std::string(129, 'x')).problem,
            "has 129 characters, and the printer accepts 1 to 128");
}

TEST(Remarks, NameAForbiddenCharacter) {
  EXPECT_EQ(remarkOn("QVJobComment=Custom.a:b").problem,
            "has the character \":\", which the printer does not accept");
}

TEST(Remarks, NameATextThatIsCut) {
  EXPECT_EQ(remarkOn("QVJobComment=Custom.a.b").problem,
            "is cut at its full stop: the printer gets \"a\"");
}

TEST(Remarks, NamePapersThatDisagree) {
  EXPECT_EQ(remarkOn("media=A3 PageSize=A4").problem, "is not the same paper as PageSize=A4");
}

TEST(Remarks, NamePapersThatDisagreeInAnyForm) {
  for (const char* media : {"iso_a3_297x420mm", "Tray1,A3", "iso_a3_297x420mm,stationery",
                            "Custom.20x30cm", "custom_report_200x300mm", "a3"}) {
    EXPECT_EQ(remarkOn(std::string("media=") + media + " PageSize=A4").problem,
              "is not the same paper as PageSize=A4")
        << media;
  }
}

TEST(Remarks, PassPapersThatAgreeInAnyForm) {
  for (const char* media : {"iso_a4_210x297mm", "Tray1,A4", "A4,stationery", "a4",
                            "Custom.210x297mm", "Tray1", "auto"}) {
    EXPECT_EQ(remarkOn(std::string("media=") + media + " PageSize=A4").problem, "") << media;
  }
}

TEST(Remarks, NameAnUnknownChoiceOfTheMakersDialog) {
  const Remark remark = remarkOn("PrintPDE=1 QVPageTray=Sometimes");
  EXPECT_EQ(remark.problem, "is not a choice of this option");
  EXPECT_FALSE(remark.choices.empty());
}

std::vector<Remark> remarksOnGiven(const std::vector<Option>& options) {
  const platform::FakePlatform platform;
  ppd_file_t* ppd = job::r_ppdOpenFile(KELM_PPDS_DIR "/explain.ppd");
  std::vector<Remark> remarks = explained({ppd, options, 1, "report"}).remarks;
  job::r_ppdClose(ppd);
  return remarks;
}

// cupsd accepts any default for a queue.
TEST(Remarks, NameAnUnknownChoiceThatIsTheDefaultOfTheQueue) {
  const std::vector<Remark> remarks = remarksOnGiven(
      {{"QVStapleMode", "Everywhere", Giver::kQueue}, {"colour-of-ink", "red", Giver::kQueue}});
  ASSERT_EQ(remarks.size(), 1U);
  EXPECT_EQ(remarks.front().option.name, "QVStapleMode");
  EXPECT_EQ(remarks.front().problem, "is not a choice of this option");
}

// PageSize wins over media, wherever it comes from.
TEST(Remarks, NameAPaperThatADefaultPageSizeReplaces) {
  const Option media{"media", "A3"};
  EXPECT_EQ(remarksOnGiven({media, {"PageSize", "A4", Giver::kUserDefaults}}).size(), 1U);
  EXPECT_EQ(remarksOnGiven({{"media", "A3", Giver::kQueue}, {"PageSize", "A4"}}).size(), 0U);
}

TEST(Remarks, NameAnOptionOfTheMakersDialog) {
  EXPECT_EQ(remarkOn("QVGutterDistanceValue100=500").problem,
            "has an effect only in jobs of the maker's dialog (PrintPDE)");
  EXPECT_EQ(remarkOn("PrintPDE=1 QVGutterDistanceValue100=500").problem, "");
}

// There is no remark on the default, because dialogs send it with each job.
TEST(Remarks, NameAnOptionOfThePpdThatDoesNothingInThisJob) {
  EXPECT_EQ(remarkOn("QVHideJob=ON").problem,
            "has an effect only in jobs of the maker's dialog (PrintPDE)");
  EXPECT_EQ(remarkOn("QVHideJob=OFF").problem, "");
  EXPECT_EQ(remarkOn("PrintPDE=1 QVHideJob=ON").problem, "");
}

TEST(Remarks, NameChoicesThatThePpdForbidsTogether) {
  const Remark remark = remarkOn("QVStapleMode=TwoStaple QVDuplex=ShortEdge");
  EXPECT_EQ(remark.option, (Option{"QVDuplex", "ShortEdge"}));
  EXPECT_EQ(remark.problem,
            "cannot be used together with QVStapleMode=TwoStaple (a constraint of the PPD)");
  EXPECT_EQ(remarkOn("QVStapleMode=TwoStaple QVDuplex=LongEdge").problem, "");
}

TEST(Remarks, NameNoOptionThatIsInNoConflict) {
  const Remark remark = remarkOn(
      "OutputBin=FaceDown QVStapleMode=TwoStaple QVDuplex=ShortEdge QVJobComment=Custom.Hi "
      "media=A4");
  EXPECT_EQ(remark.option.name, "QVDuplex");
  EXPECT_EQ(remark.problem,
            "cannot be used together with QVStapleMode=TwoStaple (a constraint of the PPD)");
}

// The remarks on a job with the tests' PPD, to which `lines` are added.
std::vector<Remark> remarksWith(const std::string& lines, const std::string& options) {
  const platform::FakePlatform platform;
  const tests::TemporaryDirectory directory;
  const std::string path = directory.path() / "changed.ppd";
  tests::writeFile(path, tests::readFile(KELM_PPDS_DIR "/explain.ppd").value() + lines);
  ppd_file_t* ppd = job::r_ppdOpenFile(path.c_str());
  std::vector<Remark> remarks = explained({ppd, parsedOptions({options}), 1, "report"}).remarks;
  job::r_ppdClose(ppd);
  return remarks;
}

Remark theRemarkWith(const std::string& lines, const std::string& options) {
  const std::vector<Remark> remarks = remarksWith(lines, options);
  EXPECT_LE(remarks.size(), 1U) << options;
  return remarks.empty() ? Remark{} : remarks.front();
}

constexpr char kStandard[] = "*KelmStandardOptions: True\n";

// The same with a PPD that asks the filter for standard options.
Remark standardRemarkOn(const std::string& options) { return theRemarkWith(kStandard, options); }

std::string conflictOf(const std::string& constraint, const std::string& options) {
  const Remark remark =
      theRemarkWith(kStandard + ("*cupsUIConstraints: \"" + constraint + "\"\n"), options);
  return remark.option.name + "=" + remark.option.value + " " + remark.problem;
}

TEST(Remarks, NameTheStandardOptionsThatThePpdForbidsTogether) {
  EXPECT_EQ(conflictOf("*QVStapleMode OneStaple *PageSize A3",
                       "OutputBin=FaceDown finishings=4 media=A3"),
            "finishings=4 cannot be used together with media=A3 (a constraint of the PPD)");
  EXPECT_EQ(
      conflictOf("*OutputBin FaceDown *QVStapleMode OneStaple",
                 "output-bin=face-down QVStapleMode=OneStaple finishings=4"),
      "output-bin=face-down cannot be used together with QVStapleMode=OneStaple (a constraint "
      "of the PPD)");
}

TEST(Remarks, NameAnOptionThatAsksForChoicesThatThePpdForbidsTogether) {
  EXPECT_EQ(theRemarkWith("*cupsIPPFinishings 93/fold-half: \"*QVDuplex LongEdge\"\n"
                          "*cupsUIConstraints: \"*QVStapleMode OneStaple *QVDuplex LongEdge\"\n",
                          "finishings=4,93")
                .problem,
            "asks for QVDuplex=LongEdge and QVStapleMode=OneStaple, which cannot be used together "
            "(a constraint of the PPD)");
}

TEST(Remarks, NameAConflictWithTheDefaultOfThePpd) {
  EXPECT_EQ(
      conflictOf("*QVStapleMode OneStaple *PageSize A4", "finishings=4"),
      "finishings=4 cannot be used together with PageSize=A4, the PPD's default (a constraint "
      "of the PPD)");
  EXPECT_EQ(conflictOf("*QVDuplex OFF *PageSize A4", "finishings=4"), "= ");
}

TEST(Remarks, NameNoOptionsThatOnlyThePaperForbids) {
  const std::vector<Remark> remarks = remarksWith(
      "*cupsUIConstraints: \"*PageSize A3 *QVStapleMode\"\n"
      "*cupsUIConstraints: \"*PageSize A3 *QVDuplex\"\n",
      "PageSize=A3 QVStapleMode=OneStaple QVDuplex=LongEdge");
  ASSERT_EQ(remarks.size(), 2U);
  EXPECT_EQ(remarks[0].problem,
            "cannot be used together with QVDuplex=LongEdge (a constraint of the PPD)");
  EXPECT_EQ(remarks[1].problem,
            "cannot be used together with QVStapleMode=OneStaple (a constraint of the PPD)");
}

TEST(Remarks, NameTwoOptionsOnceThatExcludeEachOtherTwice) {
  EXPECT_EQ(theRemarkWith("*cupsIPPFinishings 93/fold-half: \"*QVDuplex LongEdge\"\n"
                          "*cupsUIConstraints: \"*PageSize A3 *QVStapleMode\"\n"
                          "*cupsUIConstraints: \"*PageSize A3 *QVDuplex\"\n",
                          "finishings=4,93 PageSize=A3")
                .problem,
            "cannot be used together with PageSize=A3 (a constraint of the PPD)");
}

TEST(Remarks, NameThreeChoicesThatThePpdForbidsTogether) {
  EXPECT_EQ(
      conflictOf("*QVStapleMode OneStaple *OutputBin FaceDown *PageSize A3",
                 "PageSize=A3 QVStapleMode=OneStaple OutputBin=FaceDown QVDuplex=LongEdge"),
      "OutputBin=FaceDown cannot be used together with PageSize=A3 and QVStapleMode=OneStaple "
      "(a constraint of the PPD)");
}

TEST(Remarks, NameAnUnknownChoiceOfAStandardOption) {
  const Remark remark = standardRemarkOn("sides=two-sided-longedge");
  EXPECT_EQ(remark.problem, "is not a choice of this option");
  EXPECT_EQ(remark.choices,
            (std::vector<std::string>{"one-sided", "two-sided-long-edge", "two-sided-short-edge"}));
  EXPECT_EQ(remark.nearest, "two-sided-long-edge");
  for (const char* option :
       {"print-color-mode=purple", "print-quality=9", "print-quality=draft", "finishings=staple",
        "media-source=tray-9", "media-type=wood", "output-bin=face-dwn", "finishings=99",
        "finishings=4,99", "cupsPrintQuality=Best"}) {
    EXPECT_EQ(standardRemarkOn(option).problem, "is not a choice of this option") << option;
  }
  EXPECT_EQ(standardRemarkOn("output-bin=face-dwn").nearest, "face-down");
  EXPECT_EQ(standardRemarkOn("print-quality=9").nearest, "");
}

TEST(Remarks, PassChoicesOfStandardOptions) {
  for (const char* option :
       {"sides=one-sided", "print-color-mode=bi-level", "print-color-mode=color", "print-quality=5",
        "media-source=tray-1", "media-source=feed-tray-2", "media-type=stationery",
        "output-bin=face-down", "finishings=3", "finishings=4", "cupsPrintQuality=High",
        "job-password=1234", "media=A4,Tray1,stationery", "media=iso_a3_297x420mm,feed-tray-2",
        "media=StandardTray"}) {
    EXPECT_EQ(standardRemarkOn(option).problem, "") << option;
  }
}

TEST(Remarks, PassOtherLettersWhereTheyCount) {
  for (const char* option :
       {"qvduplex=longedge", "QVStapleMode=onestaple", "pagesize=a3", "MEDIA=A3",
        "Sides=two-sided-long-edge", "Finishings=4", "Print-Quality=5", "QVDUPLEX=OFF",
        "media-source=Tray-2", "output-bin=FACE-DOWN", "print-color-mode=MONOCHROME"}) {
    EXPECT_EQ(standardRemarkOn(option).problem, "") << option;
  }
  EXPECT_EQ(remarkOn("PrintPDE=1 QVStapleMode=onestaple").problem,
            "is not a choice of this option");
  EXPECT_EQ(remarkOn("PrintPDE=1 QVStapleMode=onestaple").nearest, "OneStaple");
}

TEST(Remarks, NameOtherLettersWhereTheyDoNotCount) {
  for (const char* name : {"job-priority", "job-password", "copies"}) {
    std::string large = name;
    large.front() = static_cast<char>(large.front() - 'a' + 'A');
    const Remark remark = standardRemarkOn(large + "=3");
    EXPECT_EQ(remark.problem, "is spelled with other capital letters in CUPS");
    EXPECT_EQ(remark.nearest, name);
    EXPECT_EQ(remark.option.name, large);
  }
}

TEST(Remarks, NameAKeywordInOtherLettersThatCupsDoesNotKnow) {
  const std::string duplex =
      "*OpenUI *Duplex/Two sides: PickOne\n*DefaultDuplex: None\n*Duplex None/Off: \"\"\n"
      "*Duplex DuplexNoTumble/Long edge: \"\"\n*Duplex DuplexTumble/Short edge: \"\"\n"
      "*CloseUI: *Duplex\n";
  const Remark remark = theRemarkWith(kStandard + duplex, "sides=Two-Sided-Long-Edge");
  EXPECT_EQ(remark.problem, "is not a choice of this option");
  EXPECT_EQ(remark.nearest, "two-sided-long-edge");
  EXPECT_EQ(theRemarkWith(kStandard + duplex, "sides=two-sided-long-edge").problem, "");
}

TEST(Remarks, NameWrongChoicesInOtherLetters) {
  const Remark remark = standardRemarkOn("SIDES=sideways");
  EXPECT_EQ(remark.problem, "is not a choice of this option");
  EXPECT_EQ(remark.option.name, "SIDES");
}

TEST(Remarks, NameTheStandardOptionThatWasMeant) {
  const std::pair<const char*, const char*> kMeant[] = {
      {"print-qualty=5", "print-quality"},
      {"media-sorce=tray-2", "media-source"},
      {"job-pasword=1234", "job-password"},
      {"output-bim=stacker", "output-bin"},
      {"cupsPrintQualty=High", "cupsPrintQuality"},
      {"side=one-sided", "sides"},
      {"medai=A5", "media"},
      {"finishing=4", "finishings"},
      {"number-upp=2", "number-up"},
      {"multiple-document=single-document", "multiple-document-handling"},
  };
  for (const auto& [option, meant] : kMeant) {
    const Remark remark = standardRemarkOn(option);
    EXPECT_EQ(remark.problem, "is not an option of this printer") << option;
    EXPECT_EQ(remark.nearest, meant) << option;
  }
  EXPECT_EQ(standardRemarkOn("sides=two-sided").nearest, "two-sided-long-edge");
  EXPECT_EQ(standardRemarkOn("job=1").nearest, "");
}

// libcups does not know all of them.
TEST(Remarks, PassOptionsThatAnyPrinterTakes) {
  for (const char* name : {"cover-back", "job-save-disposition", "print-rendering-intent",
                           "y-image-shift", "document-name", "page-label", "outputorder"}) {
    EXPECT_EQ(standardRemarkOn(std::string(name) + "=1").problem, "") << name;
  }
}

// In such jobs the filter does not use standard options: the dialog's values are final.
TEST(Remarks, PassStandardOptionsInJobsOfTheDialog) {
  EXPECT_EQ(standardRemarkOn("PrintPDE=1 sides=sideways").problem, "");
}

TEST(Remarks, NameAWordOfMediaThatMeansNothing) {
  EXPECT_EQ(standardRemarkOn("media=A4,Tray9").problem,
            "has the word \"Tray9\", which is no paper, tray or paper type of this printer");
  EXPECT_EQ(standardRemarkOn("media=A99").option.value, "A99");
  EXPECT_EQ(standardRemarkOn("media=A33").nearest, "A3");
  EXPECT_EQ(standardRemarkOn("media=A4,Trey2").nearest, "Tray2");
  EXPECT_EQ(standardRemarkOn("media=wallpaper").nearest, "");
}

TEST(Remarks, NameAPaperThatThePrinterCannotHave) {
  constexpr char kProblem[] =
      "is not a paper that the printer can have: its width must be 255 to 1000 points, "
      "its height 255 to 1500";
  for (const char* option :
       {"media=Custom.1000x1000mm", "PageSize=Custom.5x5cm", "media=Custom.1001x300"}) {
    EXPECT_EQ(standardRemarkOn(option).problem, kProblem) << option;
  }
  for (const char* option : {"media=Custom.255x1500", "PageSize=Custom.1000x255", "media=A3"}) {
    EXPECT_EQ(standardRemarkOn(option).problem, "") << option;
  }
}

TEST(Remarks, NamePageRegionsThatDisagreeWithMedia) {
  EXPECT_EQ(standardRemarkOn("PageRegion=A4 media=A3").problem,
            "is not the same paper as PageRegion=A4");
  EXPECT_EQ(standardRemarkOn("PageRegion=A3 media=A3").problem, "");
}

TEST(Remarks, NameAPageRegionOfNoSize) {
  for (const char* region : {"Custom.300x400", "custom.20x30cm", "Custom"}) {
    EXPECT_EQ(
        standardRemarkOn(std::string("PageRegion=") + region).problem,
        "is a paper without width and height: CUPS reads a custom size only from PageSize and "
        "media")
        << region;
  }
  EXPECT_EQ(standardRemarkOn("PageRegion=Custom.300x400").nearest, "PageSize=Custom.300x400");
  EXPECT_EQ(standardRemarkOn("PageRegion=Custom").nearest, "");
  EXPECT_EQ(standardRemarkOn("PageRegion=A99").problem, "is not a choice of this option");
  EXPECT_EQ(standardRemarkOn("PageRegion=A3").problem, "");
}

TEST(Remarks, NameAMemberOfMediaColThatIsAlone) {
  EXPECT_EQ(standardRemarkOn("media-size={x-dimension=14800}").problem,
            "has an effect only as a member of media-col");
}

TEST(Remarks, NameAnOptionOnceThatAnotherOneOverrules) {
  EXPECT_EQ(standardRemarkOn("InputSlot=Tray1 QVInputSlot=FeedTray2").problem,
            "has no effect, because QVInputSlot=FeedTray2 overrides it");
  EXPECT_EQ(standardRemarkOn("InputSlot=Tray9 QVInputSlot=FeedTray2").problem,
            "is not a choice of this option");
}

TEST(Remarks, NameCopiesThatAreNotTheLast) {
  const platform::FakePlatform platform;
  Request request{nullptr, {}, 3, "report"};
  request.overruledCopies = Option{"copies", "2"};
  ASSERT_EQ(remarksOn(request).size(), 1U);
  EXPECT_EQ(remarksOn(request).front().problem, "has no effect, because -n 3 comes after it");
  request.copiesName = "copies";
  request.overruledCopies = Option{"-n", "2"};
  EXPECT_EQ(remarksOn(request).front().problem, "has no effect, because copies=3 comes after it");
}

TEST(Remarks, NameWhatCupsDoesNotDoToThePages) {
  EXPECT_EQ(remarkOn("number-up=5").problem, "is not a choice of this option");
  EXPECT_EQ(remarkOn("print-scaling=fil").nearest, "fill");
  EXPECT_EQ(remarkOn("raw").problem, "prints without the filter: the printer gets no header");
  EXPECT_EQ(remarkOn("noraw number-up=16 print-scaling=auto-fit").problem, "");
}

TEST(Remarks, NameStandardOptionsWithoutOneValue) {
  EXPECT_EQ(standardRemarkOn("print-quality=5,4").problem,
            "has several values, but the option takes only one");
  EXPECT_EQ(standardRemarkOn("sides=").problem, "has no value");
}

TEST(Remarks, NameAPasswordThatIsEncrypted) {
  EXPECT_EQ(standardRemarkOn("job-password=1234 job-password-encryption=sha2-256").problem,
            "is encrypted, but the printer needs the digits");
  EXPECT_EQ(standardRemarkOn("job-password=1234 job-password-encryption=none").problem, "");
}

TEST(Remarks, NameAPasswordThatIsNoPin) {
  EXPECT_EQ(standardRemarkOn("job-password=12ab").problem, "is not a PIN: a PIN has 1 to 8 digits");
  EXPECT_EQ(standardRemarkOn("job-password=123456789").problem,
            "is not a PIN: a PIN has 1 to 8 digits");
}

}  // namespace
}  // namespace kelm::explain
