// Standard options become the printer's own options: which option wins, and what changes in the
// PostScript.
// SPDX-License-Identifier: Apache-2.0
#include "stdoptions/standard_options.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <string>

#include "job/ppd_calls.hpp"
#include "tests/support/memory_job.hpp"
#include "tests/support/temporary_directory.hpp"

namespace kelm::stdoptions {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Key;
using testing::Pair;
using tests::TestJob;
using Options = TestJob::Options;

// A job with the shipped PPD, after the stage of standard options.
class Settled {
 public:
  explicit Settled(const Options& options, int copies = 1) : Settled(options, copies, KELM_PPD) {}
  Settled(const Options& options, int copies, const char* ppd) : job_(options, ppd) {
    job::r_ppdMarkDefaults(job_->ppd);
    job::r_cupsMarkOptions(job_->ppd, job_->numOptions, job_->options);
    settleOptions(*job_, copies);
  }

  std::string option(const char* name) {
    std::string value;
    return job::getOptionValue(&*job_, name, value) ? value : "absent";
  }

  // The sections to be changed: keyword and choice.
  std::map<std::string, std::string> changes() {
    std::map<std::string, std::string> sections;
    for (const job::SectionOverride& section : job_->overrides) {
      sections[section.keyword] = section.choice;
    }
    return sections;
  }

  job::PrintJobData& job() { return *job_; }

 private:
  TestJob job_;
};

TEST(StandardOptions, AreLeftAloneInJobsOfTheDialog) {
  Settled settled(Options{{"PrintPDE", "1"}, {"Duplex", "DuplexNoTumble"}});
  EXPECT_EQ(settled.option("QVDuplex"), "absent");
  EXPECT_FALSE(settled.job().optionsSettled);
}

TEST(StandardOptions, AreLeftAloneInUpdateJobs) {
  Settled settled(Options{{"UpdatePPDOptions", ""}, {"Duplex", "DuplexNoTumble"}});
  EXPECT_EQ(settled.option("QVDuplex"), "absent");
}

TEST(StandardOptions, AreLeftAloneWithoutAPpd) {
  TestJob job(Options{{"Duplex", "DuplexNoTumble"}});
  settleOptions(*job, 3);
  EXPECT_FALSE(job->optionsSettled);
  EXPECT_EQ(job->copiesOfHeader, 0);
}

TEST(StandardOptions, BecomeOwnOnesAndChangeTheirSections) {
  Settled settled(Options{{"Duplex", "DuplexTumble"}, {"InputSlot", "Tray2"}});
  EXPECT_EQ(settled.option("QVDuplex"), "ShortEdge");
  EXPECT_EQ(settled.option("QVInputSlot"), "FeedTray2");
  EXPECT_THAT(settled.changes(), testing::UnorderedElementsAre(Pair("QVDuplex", "ShortEdge"),
                                                               Pair("QVInputSlot", "FeedTray2")));
}

// The PPD's option InputSlot does not have this choice.
TEST(StandardOptions, TakeTheOwnNamesOfTraysToo) {
  Settled settled(Options{{"InputSlot", "FeedTray3"}});
  EXPECT_EQ(settled.option("QVInputSlot"), "FeedTray3");
  EXPECT_THAT(settled.changes(), testing::ElementsAre(Pair("QVInputSlot", "FeedTray3")));
}

TEST(StandardOptions, ThatAreNeutralAskForNothing) {
  Settled settled(Options{{"Duplex", "None"}, {"InputSlot", "Auto"}, {"ColorModel", "CMYK"}});
  EXPECT_EQ(settled.option("QVDuplex"), "OFF");
  EXPECT_THAT(settled.changes(), IsEmpty());
}

TEST(StandardOptions, MayBeWordsOfMedia) {
  Settled settled(Options{{"media", "A5,Tray2,stationery-inkjet"}});
  EXPECT_EQ(settled.option("media"), "A5");
  EXPECT_EQ(settled.option("QVInputSlot"), "FeedTray2");
  EXPECT_EQ(settled.option("QVMediaType"), "IJPaper");
  EXPECT_EQ(Settled(Options{{"media", "cardstock"}}).option("QVMediaType"), "CardIJ");
}

// The shipped PPD with other defaults, as lpadmin -o writes them.
class Queue {
 public:
  explicit Queue(const Options& defaults) {
    std::ifstream shipped(KELM_PPD);
    std::ofstream changed(path());
    for (std::string line; std::getline(shipped, line);) {
      for (const auto& [option, choice] : defaults) {
        const std::string begin = "*Default" + option + ": ";
        if (line.starts_with(begin)) line = begin + choice;
      }
      changed << line << '\n';
    }
  }
  Queue(const std::string& option, const std::string& choice) : Queue(Options{{option, choice}}) {}

  Settled settled(const Options& options) const { return Settled(options, 1, path().c_str()); }

 private:
  std::string path() const { return directory_.path() / "queue.ppd"; }

  tests::TemporaryDirectory directory_;
};

struct QueueDefault {
  const char* option;
  const char* choice;
  const char* own;      // the printer's own option
  const char* value;    // the value that the choice means
  const char* other;    // a choice that overrides the default
  const char* settled;  // the value of that choice
};
constexpr QueueDefault kQueueDefaults[] = {
    {"PageSize", "A5", "media", "A5", "A3", "A3"},
    {"Duplex", "DuplexNoTumble", "QVDuplex", "LongEdge", "None", "OFF"},
    {"Duplex", "DuplexTumble", "QVDuplex", "ShortEdge", "DuplexNoTumble", "LongEdge"},
    {"InputSlot", "Main", "QVInputSlot", "StandardTray", "Auto", "Auto"},
    {"MediaType", "IJPaper", "QVMediaType", "IJPaper", "Any", "Any"},
    {"ColorModel", "Gray", "QVOutputMode", "Black", "CMYK", "Auto"},
    {"OutputBin", "Stacker", "QVOutputTray", "Stacker", "Auto", "Auto"},
    {"Collate", "False", "QVCollate", "False", "True", "True"},
};

TEST(DefaultOfTheQueue, CountsWhereTheJobAsksForNothing) {
  for (const QueueDefault& each : kQueueDefaults) {
    const Queue queue(each.option, each.choice);
    EXPECT_EQ(queue.settled({}).option(each.own), each.value) << each.option;
    if (std::string(each.own) == "media") continue;
    EXPECT_THAT(queue.settled({}).changes(), Contains(Pair(each.own, each.value))) << each.option;
  }
}

TEST(DefaultOfTheQueue, IsTakenBackByTheJob) {
  for (const QueueDefault& each : kQueueDefaults) {
    Settled settled = Queue(each.option, each.choice).settled({{each.option, each.other}});
    EXPECT_EQ(settled.option(each.own), each.settled) << each.option;
  }
}

TEST(DefaultOfTheQueue, IsTakenBackWithTheDefaultOfTheOwnOption) {
  const Queue queue(Options{{"Duplex", "DuplexTumble"}, {"QVDuplex", "LongEdge"}});
  Settled settled = queue.settled({{"Duplex", "None"}});
  EXPECT_EQ(settled.option("QVDuplex"), "OFF");
  EXPECT_THAT(settled.changes(), Contains(Pair("QVDuplex", "OFF")));
}

TEST(DefaultOfTheQueue, LosesAgainstTheOwnOptionOfTheJob) {
  Settled settled = Queue("Duplex", "DuplexNoTumble").settled({{"QVDuplex", "ShortEdge"}});
  EXPECT_EQ(settled.option("QVDuplex"), "ShortEdge");
}

// libcups marks the preset for colour in such jobs.
TEST(DefaultOfTheQueue, OfBlackStaysInJobsWithoutColour) {
  const Queue queue("ColorModel", "Gray");
  for (const char* mode : {"auto-monochrome", "process-monochrome", "bi-level", "monochrome"}) {
    EXPECT_EQ(queue.settled({{"print-color-mode", mode}}).option("QVOutputMode"), "Black") << mode;
  }
  EXPECT_EQ(queue.settled({{"print-color-mode", "color"}}).option("QVOutputMode"), "Auto");
}

TEST(OwnOptions, WinWhereTheyAreNotTheDefault) {
  Settled settled(Options{{"Duplex", "DuplexTumble"}, {"QVDuplex", "LongEdge"}});
  EXPECT_EQ(settled.option("QVDuplex"), "LongEdge");
  EXPECT_THAT(settled.changes(), IsEmpty());
}

TEST(OwnOptions, LoseWhereTheyRepeatTheDefault) {
  Settled settled(Options{{"Duplex", "DuplexTumble"}, {"QVDuplex", "OFF"}});
  EXPECT_EQ(settled.option("QVDuplex"), "ShortEdge");
}

TEST(OwnOptions, LoseWhereTheyAreNoChoice) {
  Settled settled(Options{{"Duplex", "DuplexTumble"}, {"QVDuplex", "Sideways"}});
  EXPECT_EQ(settled.option("QVDuplex"), "ShortEdge");
}

TEST(OwnOptions, AreSpelledAsThePpdSpellsThem) {
  Settled settled(Options{{"qvstaplemode", "onestaple"}});
  EXPECT_EQ(settled.option("QVStapleMode"), "OneStaple");
  EXPECT_EQ(settled.option("qvstaplemode"), "absent");
}

TEST(OwnOptions, OfNumbersAreNumbers) {
  Settled custom(Options{{"QVZoomRate", "Custom.141"}});
  EXPECT_EQ(custom.option("QVZoomRate"), "141");
  EXPECT_THAT(custom.changes(), IsEmpty());
  Settled bare(Options{{"QVZoomRate", "141"}});
  EXPECT_EQ(bare.option("QVZoomRate"), "141");
  EXPECT_THAT(bare.changes(), Contains(Pair("QVZoomRate", "141")));
  EXPECT_EQ(bare.job().overrides.front().code, "(141) userdict exch /QVZoomRate exch put");
}

TEST(OwnOptions, OfNumbersHaveBounds) {
  Settled settled(Options{{"QVZoomRate", std::string(5000, '9')}});
  EXPECT_EQ(settled.option("QVZoomRate"), "OFF");
}

TEST(OwnOptions, OfFoldersTakeNamesAlone) {
  EXPECT_EQ(Settled(Options{{"QVOutputBox", "SharedBox42"}}).option("QVOutputBox"), "SharedBox42");
  EXPECT_EQ(Settled(Options{{"QVOutputBox", "a)b"}}).option("QVOutputBox"), "SharedBox1");
}

TEST(OwnOptions, OfTextsStayAsTheyAreTyped) {
  Settled settled(Options{{"QVJobComment", "Custom.No. 7"}, {"QVOwnerNameInfo", "Miller"}});
  EXPECT_EQ(settled.option("QVJobComment"), "Custom.No. 7");
  EXPECT_EQ(settled.option("QVOwnerNameInfo"), "Miller");
  EXPECT_THAT(settled.changes(), IsEmpty());
}

TEST(OwnOptions, OfFormsAreFoundByTheirLabelAfterCustom) {
  Settled settled(Options{{"QVFormSelect1", "Custom.Form 3"}});
  EXPECT_EQ(settled.option("QVFormSelect1"), "Form3");
  ASSERT_THAT(settled.changes(), Contains(Key("QVFormSelect1")));
  EXPECT_EQ(settled.job().overrides.front().code, "");
}

TEST(OwnOptions, OfABookletFlipOnTheShortEdge) {
  Settled settled(Options{{"QVBookletBinding", "TwoFold"}, {"Duplex", "DuplexNoTumble"}});
  EXPECT_EQ(settled.option("QVDuplex"), "ShortEdge");
  EXPECT_THAT(settled.changes(), testing::ElementsAre(Pair("QVDuplex", "ShortEdge")));
}

TEST(JobPassword, IsThePin) {
  EXPECT_EQ(Settled(Options{{"job-password", "1234"}}).option("QVSecretNumInfo"), "1234");
  EXPECT_EQ(Settled(Options{{"job-password", "1234"}, {"QVSecretNumInfo", "77"}})
                .option("QVSecretNumInfo"),
            "77");
  EXPECT_EQ(Settled(Options{{"job-password", "12a4"}}).option("QVSecretNumInfo"), "OFF");
  EXPECT_EQ(Settled(Options{{"job-password", "123456789"}}).option("QVSecretNumInfo"), "OFF");
  EXPECT_EQ(Settled(Options{{"job-password", "31"}, {"job-password-encryption", "sha2-256"}})
                .option("QVSecretNumInfo"),
            "OFF");
}

TEST(PageSize, IsTheOneThatCupsMarked) {
  EXPECT_EQ(Settled({}).option("media"), "A4");
  EXPECT_EQ(Settled(Options{{"PageSize", "A5"}}).option("media"), "A5");
  EXPECT_EQ(Settled(Options{{"media", "iso_a5_148x210mm"}}).option("media"), "A5");
  EXPECT_EQ(Settled(Options{{"media", "a5,FeedTray1"}}).option("media"), "A5");
  EXPECT_EQ(Settled(Options{{"PageSize", "A5"}, {"media", "A3"}}).option("media"), "A5");
}

TEST(PageSize, IsInWholePointsThatMeanTheSameMillimetres) {
  EXPECT_EQ(Settled(Options{{"media", "Custom.20x30cm"}}).option("media"), "Custom.567x850");
  EXPECT_EQ(Settled(Options{{"media", "Custom.500.4x700"}}).option("media"), "Custom.502x700");
}

TEST(PageSize, StaysAsItIsTypedWhereItAgrees) {
  EXPECT_EQ(Settled(Options{{"media", "Custom.500x700"}}).option("media"), "Custom.500x700");
  EXPECT_EQ(Settled(Options{{"PageSize", "Tabloid"}, {"media", "tabloid"}}).option("media"),
            "tabloid");
}

TEST(PageSize, ReplacesAMappedPaperThatIsAnother) {
  constexpr char kMapped[] = "com.apple.print.PageToPaperMappingMediaName";
  EXPECT_EQ(Settled(Options{{kMapped, "B5"}}).option(kMapped), "absent");
  EXPECT_EQ(Settled(Options{{kMapped, "A4"}}).option(kMapped), "A4");
  EXPECT_EQ(Settled(Options{{kMapped, "Custom.595x842"}}).option(kMapped), "Custom.595x842");
  EXPECT_EQ(Settled(Options{{kMapped, "Custom.595x700"}}).option(kMapped), "absent");
  EXPECT_EQ(Settled(Options{{kMapped, "Custom.500x842"}}).option(kMapped), "absent");
}

TEST(Orientation, FollowsAWideCustomPaperUnlessTheJobAsksForTheOther) {
  EXPECT_EQ(Settled(Options{{"QVOrientation", "Portrait"}, {"PageSize", "Custom.700x500"}})
                .option("QVOrientation"),
            "Landscape");
  EXPECT_EQ(Settled(Options{{"QVOrientation", "Portrait"}}).option("QVOrientation"), "Portrait");
  EXPECT_EQ(Settled({}).option("QVOrientation"), "absent");
  EXPECT_EQ(Settled(Options{{"QVOrientation", "landscape"}}).option("QVOrientation"), "Landscape");
}

constexpr char kCopies[] = "com.apple.print.PrintSettings.PMCopies..n.";

TEST(Copies, AreAskedForByTheHeader) {
  Settled settled({}, 3);
  EXPECT_EQ(settled.option(kCopies), "3");
  EXPECT_EQ(settled.job().copiesOfHeader, 3);
  EXPECT_EQ(settled.option("QVCollate"), "True");
}

TEST(Copies, OfOneChangeNothing) {
  Settled settled({}, 1);
  EXPECT_EQ(settled.option(kCopies), "absent");
  EXPECT_EQ(settled.job().copiesOfHeader, 0);
}

TEST(Copies, MayComeUncollated) {
  EXPECT_EQ(Settled(Options{{"Collate", "False"}}, 3).option("QVCollate"), "False");
  EXPECT_EQ(
      Settled(Options{{"multiple-document-handling", "separate-documents-uncollated-copies"}}, 3)
          .option("QVCollate"),
      "False");
}

// For copies in sets, pstops repeats the pages itself unless "Collate" is True.
TEST(Copies, ThatCupsMakesAreNotAskedForAgain) {
  Settled settled(Options{{"Collate", "False"},
                          {"multiple-document-handling", "separate-documents-collated-copies"}},
                  3);
  EXPECT_EQ(settled.option(kCopies), "1");
  EXPECT_EQ(settled.job().copiesOfHeader, 0);
}

// pstops does not ask a printer for more than 9999 copies.
TEST(Copies, AboveTheLargestNumberAreMadeByCups) {
  EXPECT_EQ(Settled({}, 9999).job().copiesOfHeader, 9999);
  Settled settled({}, 10000);
  EXPECT_EQ(settled.option(kCopies), "1");
  EXPECT_EQ(settled.job().copiesOfHeader, 0);
}

}  // namespace
}  // namespace kelm::stdoptions
