// What the settled options change in the PostScript: sections in which CUPS wrote another choice,
// and CUPS' own request for copies.
// SPDX-License-Identifier: Apache-2.0
#include "psrewrite/settled_sections.hpp"

#include <gtest/gtest.h>

#include <string>

#include "filter/copy_loop.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::filter {
namespace {

using tests::TestJob;
using Options = TestJob::Options;

std::string copied(std::string_view input, TestJob& job, std::size_t blockSize = 1U << 20U) {
  tests::MemorySource source(input, blockSize);
  tests::MemoryOutput output;
  psrewrite::JobStream stream(source, output.stream());
  copyPostScript(stream, *job);
  return output.text();
}

constexpr char kDuplexOff[] =
    "%%BeginFeature: *QVDuplex OFF\n(OFF) userdict exch /QVDuplex exch "
    "put\n%%EndFeature\nshowpage\n";
constexpr char kDuplexLong[] =
    "%%BeginFeature: *QVDuplex LongEdge\n(LongEdge) userdict exch /QVDuplex exch put\n"
    "%%EndFeature\nshowpage\n";

TestJob twoSided() {
  TestJob job;
  job->overrides.push_back({"QVDuplex", "LongEdge", "(LongEdge) userdict exch /QVDuplex exch put"});
  return job;
}

TEST(SectionOverride, NamesItsChoiceAndWritesItsCode) {
  TestJob job = twoSided();
  EXPECT_EQ(copied(kDuplexOff, job), kDuplexLong);
}

TEST(SectionOverride, DoesTheSameByteByByte) {
  TestJob job = twoSided();
  EXPECT_EQ(copied(kDuplexOff, job, 1), kDuplexLong);
}

TEST(SectionOverride, LeavesOtherKeywordsAlone) {
  TestJob job = twoSided();
  const std::string other = "%%BeginFeature: *QVDuplexer OFF\n(OFF) x\n%%EndFeature\n";
  EXPECT_EQ(copied(other, job), other);
  const std::string text = "% QVDuplex OFF BeginFeature: *QVDuplex OFF\n(OFF) x\n";
  EXPECT_EQ(copied(text, job), text);
}

TEST(SectionOverride, TakesASectionOfSeveralLines) {
  TestJob job = twoSided();
  EXPECT_EQ(copied("%%BeginFeature: *QVDuplex OFF\na\n%%b\nc\n%%EndFeature\nd\n", job),
            "%%BeginFeature: *QVDuplex LongEdge\n(LongEdge) userdict exch /QVDuplex exch put\n"
            "%%EndFeature\nd\n");
}

TEST(SectionOverride, DoesNotNameAChoiceThatFillsALine) {
  TestJob job;
  job->overrides.push_back({"QVDuplex", std::string(4096, 'x'), "(x) duplex"});
  EXPECT_EQ(copied("%%BeginFeature: *QVDuplex OFF\n(OFF) duplex\n%%EndFeature\n", job),
            "%%BeginFeature: *QVDuplex OFF\n(x) duplex\n%%EndFeature\n");
}

TEST(SectionOverride, EndsWithTheInput) {
  TestJob job = twoSided();
  EXPECT_EQ(copied("%%BeginFeature: *QVDuplex OFF", job),
            "%%BeginFeature: *QVDuplex LongEdge\n(LongEdge) userdict exch /QVDuplex exch put\n");
}

// The writer of the section finds the choice in the job's option.
TEST(SectionOverride, WithoutCodeTakesTheLineOfACustomText) {
  TestJob job(Options{{"QVJobComment", "Hello"}});
  job->overrides.push_back({"QVJobComment", "Hello", ""});
  EXPECT_EQ(copied("%%BeginFeature: *CustomQVJobComment True\n(Hello)\n"
                   "(XXX) userdict exch /QVJobComment exch put\n%%EndFeature\n",
                   job),
            "%%BeginFeature: *QVJobComment Hello\n"
            "(48656C6C6F) userdict exch /QVJobComment exch put\n%%EndFeature\n");
}

constexpr char kThreeCopies[] =
    "%!PS-Adobe-3.0\n%%Requirements: numcopies(3) collate duplex\n%RBINumCopies: 3\n%%Pages: 1\n"
    "%RBIBeginNonPPDFeature: *NumCopies 3\n3/languagelevel where{x}{y}ifelse\nz\n"
    "%RBIEndNonPPDFeature\nshowpage\n";

TEST(Copies, StayWithoutAHeaderThatAsksForThem) {
  TestJob job;
  EXPECT_EQ(copied(kThreeCopies, job), kThreeCopies);
}

TEST(Copies, GoWhereTheHeaderAsksForThem) {
  for (const std::size_t blockSize : {1U, 7U, 4096U}) {
    TestJob job;
    job->copiesOfHeader = 3;
    EXPECT_EQ(copied(kThreeCopies, job, blockSize),
              "%!PS-Adobe-3.0\n%%Requirements: duplex\n%%Pages: 1\nshowpage\n");
  }
}

TEST(Copies, OfAnotherNumberStay) {
  TestJob job;
  job->copiesOfHeader = 30;
  EXPECT_EQ(copied(kThreeCopies, job), kThreeCopies);
}

TEST(Copies, GoAfterALineThatIsLongerThanTheBuffer) {
  TestJob job;
  job->copiesOfHeader = 3;
  const std::string comment = "%" + std::string(5000, 'x') + "\n";
  EXPECT_EQ(copied(comment + "%RBINumCopies: 3\nshowpage\n", job), comment + "showpage\n");
}

TEST(Copies, OfARequirementAloneLeaveNothing) {
  TestJob job;
  job->copiesOfHeader = 3;
  EXPECT_EQ(copied("%%Requirements: numcopies(3)\n%%Pages: 1\n", job), "%%Pages: 1\n");
}

TEST(Copies, EndWithTheInput) {
  TestJob job;
  job->copiesOfHeader = 3;
  EXPECT_EQ(copied("%RBIBeginNonPPDFeature: *NumCopies 3\n3/x\n", job), "");
  EXPECT_EQ(copied("a%", job), "a%");
}

}  // namespace
}  // namespace kelm::filter
