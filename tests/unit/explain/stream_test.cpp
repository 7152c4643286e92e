// What a printer stream says, and what is wrong with it.
// SPDX-License-Identifier: Apache-2.0
#include "explain/stream.hpp"

#include <gtest/gtest.h>

#include "job/custom_paper.hpp"
#include "platform/fake/fake_platform.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::explain {
namespace {

using tests::TestJob;

class Stream : public testing::Test {
 protected:
  // The stream of a job with this PostScript after its header.
  static std::string of(const TestJob::Options& options, const std::string& postScript = "%!PS\n") {
    TestJob job(options);
    job::customSizeFlg = false;  // not from the job before
    job::widthLength = 0;
    job::heighLength = 0;
    tests::MemoryOutput output;
    pjl::OutputPJL(output.stream(), *job);
    return output.text() + postScript;
  }

  static StreamReport read(const std::string& bytes, std::size_t blockSize = 1000) {
    tests::MemorySource source(bytes, blockSize);
    return readStream(source);
  }

  // The problems of a stream, one per line.
  static std::string problems(const std::string& bytes) {
    std::string text;
    for (const Finding& finding : read(bytes).findings) text += finding.problem + "\n";
    return text;
  }

  static std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t place = text.find(from);
    EXPECT_NE(place, std::string::npos) << from;
    return text.replace(place, from.size(), to);
  }

  // The stream of a one-sided job without other options.
  static std::string plain() { return of({{"QVDuplex", "OFF"}}); }

  static std::string section(const std::string& keyword, const std::string& value) {
    return "%%BeginFeature: *" + keyword + " " + value + "\n(" + value + ") userdict exch /" +
           keyword + " exch put\n%%EndFeature\n";
  }

  static std::string page(const std::string& choice, const std::string& size) {
    return "%%BeginFeature: *PageSize " + choice + "\n<</PageSize [" + size +
           "] /ImagingBBox null>> setpagedevice\n%%EndFeature\n";
  }

 private:
  platform::FakePlatform platform_;
};

TEST_F(Stream, IsRightAsItIsWritten) {
  EXPECT_EQ(problems(of({})), "");
  EXPECT_EQ(problems(of({{"PrintPDE", "1"}})), "");
  EXPECT_TRUE(read(of({{"PrintPDE", "1"}})).isDialogJob);
  EXPECT_FALSE(read(of({})).isDialogJob);
}

TEST_F(Stream, HasItsSizeAndItsHeader) {
  const std::string bytes = of({{"QVStapleMode", "OneStaple"}}, "%!PS\n" + std::string(5000, '%'));
  const StreamReport report = read(bytes);
  EXPECT_EQ(report.size, bytes.size());
  int staples = 0;
  for (const pjl::RecordedLine& line : report.header) {
    if (line.variable == "QVSTAPLEMODE" && line.value == "1STAPLE") ++staples;
  }
  EXPECT_EQ(staples, 1);
}

TEST_F(Stream, WithoutAHeader) {
  EXPECT_EQ(problems("%!PS\n"),
            "there is no header: the stream does not begin with the UEL and @PJL\n");
  EXPECT_EQ(problems(""),
            "there is no header: the stream does not begin with the UEL and @PJL\n"
            "the header is not followed by PostScript (%!)\n");
}

TEST_F(Stream, WithAnotherFrame) {
  EXPECT_EQ(problems(replaced(of({}), "FLAG=13", "FLAG=12")),
            "line 5 is \"@PJL SET QVRIPCONTROLFLAG=12\", not \"@PJL SET QVRIPCONTROLFLAG=13\"\n");
  EXPECT_EQ(problems(replaced(of({}), "@PJL ENTER LANGUAGE=POSTSCRIPT\n", "")),
            "the switch to PostScript (\"@PJL ENTER LANGUAGE=POSTSCRIPT\") is missing\n");
}

TEST_F(Stream, WithAnUnknownAMissingAndARepeatedVariable) {
  EXPECT_EQ(problems(replaced(of({}), "@PJL SET QVJOG=OFF\n", "")), "QVJOG is missing\n");
  EXPECT_EQ(problems(replaced(of({}), "@PJL SET QVJOG=OFF\n",
                              "@PJL SET QVJOG=OFF\n@PJL SET QVJOG=OFF\n")),
            "QVJOG appears twice\n");
  EXPECT_EQ(problems(replaced(of({}), "@PJL SET QVJOG=OFF\n",
                              "@PJL SET QVJOG=OFF\n@PJL SET QVDOG=OFF\n")),
            "QVDOG is not a variable of this printer\n");
}

TEST_F(Stream, WithVariablesInAnotherOrder) {
  EXPECT_EQ(problems(replaced(of({}), "@PJL SET QVGUTTER=OFF\n@PJL SET QVGUTTERDISTANCE=0\n",
                              "@PJL SET QVGUTTERDISTANCE=0\n@PJL SET QVGUTTER=OFF\n")),
            "QVGUTTER comes after QVGUTTERDISTANCE, but the printer needs it earlier\n");
}

TEST_F(Stream, WithValuesThatThePrinterDoesNotHave) {
  EXPECT_EQ(problems(of({{"QVJog", "Sideways"}})),
            "QVJOG is empty: the printer does not have the job's choice\n");
  EXPECT_EQ(problems(replaced(of({}), "QVJOG=OFF", "QVJOG=UP")), "QVJOG cannot be \"UP\"\n");
}

TEST_F(Stream, WithValuesThatNoTableHas) {
  struct Wrong {
    const char* line;
    const char* value;
  };
  for (const auto& [line, value] :
       std::initializer_list<Wrong>{{"QTY=1", "-3"},
                                    {"QTY=1", "0"},
                                    {"QTY=1", "abc"},
                                    {"DUPLEX=OFF", "YES"},
                                    {"BINDING=OFF", "ON"},
                                    {"QVPAGESIZE=A4", "A99"},
                                    {"QVPAGESIZE=A4", "AUTO"},
                                    {"PAPER=AUTO", "a4"},
                                    {"QVPAGESIZEWIDTH=21000", "abc"},
                                    {"QVPAGESIZEWIDTH=21000", "-1"},
                                    {"ORIENTATION=PORTRAIT", "SIDEWAYS"},
                                    {"QVZOOMRATE=100", "100%"},
                                    {"QVIMAGESHIFTFRONTV=0", "1."},
                                    {"QVGCCYAN=100", "-"},
                                    {"QVOUTPUTFACE=FACEDOWN", "UP"},
                                    {"QVSECRETNUM=OFF", "off"},
                                    {"QVJOBCOMMENT=", "ZZ"},
                                    {"QVJOBCOMMENT=", "414"},
                                    {"QVOUTPUTPROFILESELECTION=AUTO", "no"},
                                    {"PASSWORD=", "12x4"},
                                    {"PASSWORD=", "123456789"}}) {
    const std::string text(line);
    const std::string variable = text.substr(0, text.find('='));
    const std::string sent =
        replaced(plain(), "SET " + text + "\n", "SET " + variable + "=" + value + "\n");
    EXPECT_EQ(problems(sent), variable + " cannot be \"" + value + "\"\n");
  }
}

TEST_F(Stream, WithOtherValuesThatNoTableHas) {
  struct Right {
    const char* line;
    const char* other;
  };
  for (const auto& [line, other] : std::initializer_list<Right>{
           {"QTY=1", "COPIES=9999"},
           {"QVPAGESIZE=A4", "QVPAGESIZE=ENVNO.10"},
           {"QVPAGESIZE=A4", "QVPAGESIZE=CUSTOMSIZE"},
           {"PAPER=AUTO", "PAPER=SRA3"},
           {"QVPAGESIZEWIDTH=21000", "QVPAGESIZEWIDTH=0"},
           {"ORIENTATION=PORTRAIT", "ORIENTATION=LANDSCAPE"},
           {"QVZOOMRATE=100", "QVZOOMRATE=141.4"},
           {"QVIMAGESHIFTFRONTV=0", "QVIMAGESHIFTFRONTV=-150"},
           {"QVOUTPUTFACE=FACEDOWN", "QVOUTPUTFACE=FACEUP"},
           {"QVJOBCOMMENT=", "QVJOBCOMMENT=7265706F7274"},
           {"QVOUTPUTPROFILESELECTION=AUTO", "QVOUTPUTPROFILESELECTION=NOTUSE"},
           {"QVOUTPUTPROFILESELECTION=AUTO", "QVOUTPUTPROFILESELECTION=4142"},
           {"PASSWORD=", "PASSWORD=12345678"}}) {
    EXPECT_EQ(problems(replaced(plain(), std::string("SET ") + line + "\n",
                                std::string("SET ") + other + "\n")),
              "")
        << other;
  }
}

TEST_F(Stream, WhoseSectionsAgree) {
  const std::string sections = section("QVDuplex", "LongEdge") + section("QVStapleMode", "OFF") +
                               section("QVGCCyan", "90") + section("QVZoomRate", "100") +
                               section("QVCollate", "True") + section("QVOutputBox", "SharedBox1");
  const TestJob::Options options = {
      {"QVDuplex", "LongEdge"}, {"QVGCCyan", "90"}, {"QVZoomRate", "100"}};
  const std::string bytes = of(options, "%!PS\n" + sections);
  EXPECT_EQ(problems(bytes), "");
  for (const std::size_t size : {1U, 2U, 3U, 7U, 4096U}) {
    EXPECT_EQ(read(bytes, size).sections.size(), 6U) << size;
  }
}

TEST_F(Stream, WhoseSectionDisagrees) {
  EXPECT_EQ(problems(of({}, "%!PS\n" + section("QVStapleMode", "OneStaple"))),
            "the PostScript says QVStapleMode is \"OneStaple\", and the header says "
            "QVSTAPLEMODE=OFF\n");
  EXPECT_EQ(problems(of({}, "%!PS\n" + section("QVGCCyan", "90"))),
            "the PostScript says QVGCCyan is \"90\", and the header says QVGCCYAN=100\n");
  EXPECT_EQ(problems(of({{"QVDuplex", "ShortEdge"}}, "%!PS\n" + section("QVDuplex", "LongEdge"))),
            "the PostScript says QVDuplex is \"LongEdge\", and the header says "
            "BINDING=SHORTEDGE\n");
  EXPECT_EQ(problems(of({{"media", "A3"}}, "%!PS\n%%BeginFeature: *PageSize A4\n%%EndFeature\n")),
            "the PostScript says PageSize is \"A4\", and the header says QVPAGESIZE=A3\n"
            "the PostScript says PageSize is \"A4\", and the header says QVPAGESIZEWIDTH=29700\n"
            "the PostScript says PageSize is \"A4\", and the header says QVPAGESIZEHEIGHT=42000\n"
            "the PostScript says PageSize is \"A4\", and the header says "
            "QVTARGETPAPERSIZEWIDTH=29700\n"
            "the PostScript says PageSize is \"A4\", and the header says "
            "QVTARGETPAPERSIZEHEIGHT=42000\n");
}

TEST_F(Stream, WhoseBookletTurnsTheSheetsOtherwise) {
  EXPECT_EQ(problems(of({{"QVDuplex", "LongEdge"}, {"QVBookletBinding", "TwoFold"}},
                        "%!PS\n" + section("QVDuplex", "LongEdge") +
                            section("QVBookletBinding", "TwoFold"))),
            "the PostScript says QVDuplex is \"LongEdge\", and the header says DUPLEX=ON\n"
            "the PostScript says QVDuplex is \"LongEdge\", and the header says "
            "BINDING=SHORTEDGE\n");
}

TEST_F(Stream, WithTexts) {
  const TestJob::Options options = {{"QVJobComment", "Custom.Hello"}};
  EXPECT_EQ(problems(of(options, "%!PS\n" + section("QVJobComment", "48656C6C6F"))), "");
  EXPECT_EQ(problems(of(options, "%!PS\n" + section("QVJobComment", "48"))),
            "the PostScript says QVJobComment is \"48\", and the header says "
            "QVJOBCOMMENT=48656C6C6F\n");
}

TEST_F(Stream, WithASectionLeftUnfilled) {
  EXPECT_EQ(problems(of({}, "%!PS\n" + section("QVJobComment", "XXX"))),
            "the section of QVJobComment still has XXX as its value\n");
}

TEST_F(Stream, WithASectionThatChanges) {
  EXPECT_EQ(problems(of({}, "%!PS\n" + section("QVJog", "OFF") + section("QVJog", "Set"))),
            "QVJog is \"Set\" here and \"OFF\" before\n");
}

TEST_F(Stream, ReadsTheCodeOfASectionNotItsComment) {
  EXPECT_EQ(problems(of({},
                        "%!PS\n%%BeginFeature: *QVStapleMode OFF\n"
                        "(OneStaple) userdict exch /QVStapleMode exch put\n%%EndFeature\n")),
            "the PostScript says QVStapleMode is \"OneStaple\", and the header says "
            "QVSTAPLEMODE=OFF\n");
}

TEST_F(Stream, ReadsParenthesesInsideAString) {
  const StreamReport report =
      read(of({},
              "%!PS\n%%BeginFeature: *QVJobComment None\n"
              "(a\\)b(c)\\\\) userdict exch /QVJobComment exch put\n%%EndFeature\n"));
  ASSERT_EQ(report.sections.size(), 1U);
  EXPECT_EQ(report.sections[0].value, "a)b(c)\\");
}

TEST_F(Stream, ReadsSectionsOfThisPrinterOnly) {
  EXPECT_TRUE(read(of({}, "%!PS\n" + section("Resolution", "600dpi"))).sections.empty());
}

TEST_F(Stream, ReadsLinesThatEndInCrLf) {
  const StreamReport report = read(of({},
                                      "%!PS\r\n%%BeginFeature: *QVJog Set\r\n"
                                      "(Set) userdict exch /QVJog exch put\r\n%%EndFeature\r\n"));
  ASSERT_EQ(report.sections.size(), 1U);
  EXPECT_EQ(report.sections[0].value, "Set");
}

TEST_F(Stream, NamesTheSectionThatDisagreesAndNotItsNeighbour) {
  EXPECT_EQ(problems(of({{"QVDuplex", "LongEdge"}},
                        "%!PS\n%%BeginFeature: *QVDuplex LongEdge\n"
                        "(OFF) userdict exch /QVDuplex exch put\n%%EndFeature\n" +
                            section("QVBookletBinding", "OFF"))),
            "the PostScript says QVDuplex is \"OFF\", and the header says DUPLEX=ON\n"
            "the PostScript says QVDuplex is \"OFF\", and the header says BINDING=LONGEDGE\n");
}

TEST_F(Stream, TakesANumberForTheWordThatItStandsFor) {
  EXPECT_EQ(problems(of({},
                        "%!PS\n%%BeginFeature: *QVZoomRate OFF\n"
                        "(100) userdict exch /QVZoomRate exch put\n%%EndFeature\n")),
            "");
}

TEST_F(Stream, TakesACustomNumberFromTheLineBefore) {
  const std::string shifted =
      "%!PS\n%%BeginFeature: *CustomQVImageShiftFrontV True\n-150\n"
      "20 string cvs userdict exch /QVImageShiftFrontV exch put\n%%EndFeature\n";
  EXPECT_EQ(problems(of({{"QVImageShiftFrontV", "-150"}}, shifted)), "");
  EXPECT_EQ(problems(of({}, shifted)),
            "the PostScript says QVImageShiftFrontV is \"-150\", and the header says "
            "QVIMAGESHIFTFRONTV=0\n");
}

TEST_F(Stream, JudgesAPageByItsSize) {
  // A known paper may have been asked for by its size.
  EXPECT_EQ(problems(of({{"media", "Custom.595x842"}}, "%!PS\n" + page("A4", "595.28 841.89"))),
            "");
  EXPECT_EQ(problems(of({{"media", "A3"}}, "%!PS\n" + page("A4", "841.89 1190.55"))),
            "the PostScript says PageSize is \"A4\", and the header says QVPAGESIZE=A3\n");
  EXPECT_EQ(problems(of({}, "%!PS\n" + page("A4", "595.28 858"))),
            "the PostScript says PageSize is \"A4\", and the header says QVPAGESIZEHEIGHT=29700\n"
            "the PostScript says PageSize is \"A4\", and the header says "
            "QVTARGETPAPERSIZEHEIGHT=29700\n");
}

TEST_F(Stream, ReadsTheSizeOfACustomPage) {
  const std::string custom =
      "%!PS\n%%BeginFeature: *CustomPageSize True\n499\n699\n0\n0\n1\n"
      "pop pop pop <</PageSize [5 -2 roll] /ImagingBBox null>> setpagedevice\n%%EndFeature\n" +
      section("QVTargetPaperSize", "SameAsOriginal");
  EXPECT_EQ(problems(of({{"media", "Custom.500x700"}}, custom)), "");
  EXPECT_EQ(problems(of({{"media", "Custom.500x705"}}, custom)),
            "the PostScript says PageSize is \"Custom.499x699\", and the header says "
            "QVPAGESIZEHEIGHT=24900\n"
            "the PostScript says PageSize is \"Custom.499x699\", and the header says "
            "QVTARGETPAPERSIZEHEIGHT=24900\n");
}

TEST_F(Stream, PrintsOnAnotherPaper) {
  EXPECT_EQ(problems(of({{"QVTargetPaperSize", "A3"}}, "%!PS\n" + page("A4", "595.28 841.89") +
                                                           section("QVTargetPaperSize", "A3"))),
            "");
}

TEST_F(Stream, AsksForCopiesTwice) {
  const TestJob::Options options = {{"com.apple.print.PrintSettings.PMCopies..n.", "3"}};
  const std::string problem = "the PostScript asks for 3 copies, and the header says QTY=3\n";
  EXPECT_EQ(problems(of(options, "%!PS\n%RBINumCopies: 1\n")), "");
  EXPECT_EQ(problems(of(options, "%!PS\n%RBINumCopies: 3\n")), problem);
  EXPECT_EQ(problems(of(options,
                        "%!PS\n%%BeginSetup\n%RBIBeginNonPPDFeature: *NumCopies 3\n"
                        "<</NumCopies 3>>setpagedevice\n%RBIEndNonPPDFeature\n")),
            problem);
}

TEST_F(Stream, OfTheMakersDialog) {
  // Its sections are empty for switches that are off, and have numbers for choices.
  const TestJob::Options options = {{"PrintPDE", "1"},
                                    {"QVDateSpecify", "Custom"},
                                    {"QVJobName", "ON"},
                                    {"QVJobNameTextValueUTF8", "4A6F62"},
                                    {"QVOwnerName", "OFF"},
                                    {"QVSecretNum", "ON"},
                                    {"QVSecretNumTextValue", "0815"}};
  const std::string sections = section("QVDateSpecify", "21") + section("QVJobName", "On") +
                               section("QVOwnerName", "") + section("QVOwnerNameInfo", "") +
                               section("QVSecretNum", "On");
  const std::string header = replaced(of(options), "JOBNAME=\n", "JOBNAME=4A6F62\n");
  EXPECT_EQ(problems(header + sections + section("QVJobNameInfo", "4A6F62") +
                     section("QVSecretNumInfo", "0815")),
            "");
  EXPECT_EQ(problems(header + sections + section("QVJobNameInfo", "4A") +
                     section("QVSecretNumInfo", "0816")),
            "the PostScript says QVJobNameInfo is \"4A\", and the header says JOBNAME=4A6F62\n"
            "the PostScript says QVSecretNumInfo is \"0816\", and the header says PASSWORD=0815\n");
}

TEST_F(Stream, WithAPaperThatThePrinterDoesNotHave) {
  EXPECT_EQ(problems(replaced(of({}), "QVPAGESIZE=A4", "QVPAGESIZE=")),
            "QVPAGESIZE is empty: the printer does not have the job's choice\n");
}

TEST_F(Stream, ThatIsFollowedByAnotherJob) {
  EXPECT_EQ(problems(of({}, "%!PS\n\x1B%-12345X")), "");
  EXPECT_EQ(problems(of({}, "%!PS\n\x1B%-12345X@PJL\n")),
            "another job begins here; explain it separately\n");
}

TEST_F(Stream, KeepsNoMoreThanItMust) {
  std::string sections = "%!PS\n";
  for (int i = 0; i < 2000; ++i) sections += section("QV" + std::to_string(i), "XXX");
  const StreamReport report = read(of({}, sections), 1U << 16U);
  EXPECT_EQ(report.sections.size(), 512U);
  EXPECT_EQ(report.findings.size(), 200U);
  EXPECT_EQ(report.moreFindings, 1800U);
}

TEST_F(Stream, WithAnEndlessHeader) {
  std::string lines;
  for (int i = 0; i < 2000; ++i) lines += "@PJL SET A=1\n";
  const StreamReport report = read(lines);
  EXPECT_EQ(report.header.size(), 1001U);
  EXPECT_EQ(report.size, lines.size());
  EXPECT_GT(report.moreFindings, 800U);
}

}  // namespace
}  // namespace kelm::explain
