// The job's PostScript, copied with its feature sections rewritten.
// SPDX-License-Identifier: Apache-2.0
#include "filter/copy_loop.hpp"

#include <gtest/gtest.h>

#include <string>

#include "job/custom_paper.hpp"
#include "job/diagnostics.hpp"
#include "job/job_setup.hpp"
#include "tests/support/diagnostics_on.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::filter {
namespace {

using tests::TestJob;
using Options = TestJob::Options;

constexpr std::size_t kWholeBlock = 1U << 20U;

class CopyLoop : public testing::Test {
 protected:
  ~CopyLoop() override {
    job::customSizeFlg = false;
    job::widthLength = 0;
    job::heighLength = 0;
  }

  // The output of a job with these options, whose input comes in reads of `blockSize` bytes.
  static std::string copied(std::string_view input, const Options& options = {},
                            std::size_t blockSize = kWholeBlock) {
    TestJob job(options);
    decideCustomPaper(*job);
    decideOutputFace(*job);
    tests::MemorySource source(input, blockSize);
    tests::MemoryOutput output;
    psrewrite::JobStream stream(source, output.stream());
    copyPostScript(stream, *job);
    return output.text();
  }
};

const Options kStartNumberFive{{"PrintPDE", ""}, {"QVPageNumStartNumValue", "5"}};

TEST_F(CopyLoop, WritesNothingForNothing) { EXPECT_EQ(copied(""), ""); }

TEST_F(CopyLoop, PassesEverythingElseUnchanged) {
  using namespace std::string_literals;
  const std::string bytes = "%!PS\n50% of 100%\r\n%%Page: 1 1\n\0\xFF\n%\n%"s;
  EXPECT_EQ(copied(bytes), bytes);
}

TEST_F(CopyLoop, RewritesTheLineAfterAnOpeningLine) {
  EXPECT_EQ(
      copied("a\n%%BeginFeature: *QVPageNumStartNum 1\n(1) set\n%%EndFeature\nb", kStartNumberFive),
      "a\n%%BeginFeature: *QVPageNumStartNum 1\n(5) set\n%%EndFeature\nb");
}

TEST_F(CopyLoop, LooksAfterAnyPerCentSign) {
  EXPECT_EQ(copied("x % BeginFeature QVPageNumStartNum\n(1) set\n", kStartNumberFive),
            "x % BeginFeature QVPageNumStartNum\n(5) set\n");
}

TEST_F(CopyLoop, SeesTwoSectionsWithoutALineBetween) {
  EXPECT_EQ(copied("%%BeginFeature: *QVPageNumStartNum 1\n(1) a\n"
                   "%%BeginFeature: *QVPageNumStartNum 1\n(1) b\n",
                   kStartNumberFive),
            "%%BeginFeature: *QVPageNumStartNum 1\n(5) a\n"
            "%%BeginFeature: *QVPageNumStartNum 1\n(5) b\n");
}

TEST_F(CopyLoop, PassesASectionWithoutWriterUnchanged) {
  for (const char* keyword :
       {"QVBarcodeDensity", "QVBarcodeProof", "QVPAGESizeWidth", "QVPAGESizeHeight"}) {
    const std::string section =
        std::string("%%BeginFeature: *") + keyword + " 0\n(XXX) set\n%%EndFeature\n";
    EXPECT_EQ(copied(section, kStartNumberFive), section);
    EXPECT_EQ(copied(section), section);
  }
}

TEST_F(CopyLoop, TakesALineOfMoreThan4096BytesInPieces) {
  // The first piece is the 4096 bytes after the "%": the keyword ends just after it.
  const std::string filling(4096 - std::string("BeginFeature QVHideJo").size(), '-');
  const std::string job = "%" + filling + "BeginFeature QVHideJob\n(1) stays\n";
  EXPECT_EQ(copied(job), job);
}

TEST_F(CopyLoop, LooksAgainAfterAPerCentSignInTheRestOfALongLine) {
  const std::string longLine = "%" + std::string(4096, '-') + "rest ";
  EXPECT_EQ(copied(longLine + "%BeginFeature QVHideJob\n(1) goes\n(2) stays\n"),
            longLine + "%BeginFeature QVHideJob\n(2) stays\n");
}

// The block that holds the long line ends within the section's opening line.
TEST_F(CopyLoop, SeesASectionAfterALongLineThatTheBlockCuts) {
  const std::string before = "%" + std::string(5000, '-') + "\n%BeginFeature QVHi";
  EXPECT_EQ(copied(before + "deJob\n(1) goes\n(2) stays\n", {}, before.size()),
            before + "deJob\n(2) stays\n");
}

TEST_F(CopyLoop, SeesTheFirst4095BytesOfAPieceOnly) {
  // "%", filling, and an opening line that fills 4095 or 4096 bytes.
  const std::string opening = "BeginFeature QVHideJob";
  const std::string seen = "%" + std::string(4095 - opening.size(), '-') + opening;
  EXPECT_EQ(copied(seen + "\n(1) goes\n(2) stays\n"), seen + "\n(2) stays\n");
  const std::string cut = "%" + std::string(4096 - opening.size(), '-') + opening;
  EXPECT_EQ(copied(cut + "\n(1) stays\n"), cut + "\n(1) stays\n");
}

TEST_F(CopyLoop, TakesTheRestOfALongOpeningLineForTheValueLine) {
  const std::string piece = "BeginFeature QVHideJob" + std::string(4074, '-');
  ASSERT_EQ(piece.size(), 4096U);
  EXPECT_EQ(copied("%" + piece + "rest\n(1) stays\n"), "%" + piece + "(1) stays\n");
}

constexpr char kPortrait[] = "%%BeginFeature: *QVOrientation Portrait\n(Portrait) set\n";
constexpr char kLandscape[] = "%%BeginFeature: *QVOrientation Landscape\n(Landscape) set\n";

TEST_F(CopyLoop, TurnsTheOrientationSectionToTheOption) {
  EXPECT_EQ(copied(kPortrait, {{"QVOrientation", "1"}}), kLandscape);
  EXPECT_EQ(copied(kLandscape, {{"QVOrientation", "Portrait"}}), kPortrait);
}

TEST_F(CopyLoop, SwallowsTheOrientationValueWithoutTheOption) {
  EXPECT_EQ(copied(std::string(kPortrait) + "next\n"),
            "%%BeginFeature: *QVOrientation Portrait\nnext\n");
}

TEST_F(CopyLoop, TurnsTheCommentToUprightCustomPaper) {
  EXPECT_EQ(copied(kLandscape, {{"media", "Custom.595x842"}}),
            "%%BeginFeature: *QVOrientation Portrait\n");
}

TEST_F(CopyLoop, TurnsTheCommentToWideCustomPaper) {
  EXPECT_EQ(copied(kPortrait, {{"media", "Custom.842x595"}}),
            "%%BeginFeature: *QVOrientation Landscape\n");
}

TEST_F(CopyLoop, TakesCustomPaperWithoutSizesAsUpright) {
  EXPECT_EQ(copied(kLandscape, {{"media", "Custom"}}), "%%BeginFeature: *QVOrientation Portrait\n");
}

TEST_F(CopyLoop, LeavesTheCommentOfCustomPaperAmong100Options) {
  Options options{{"media", "Custom.595x842"}};
  for (int i = 1; i < 100; ++i) options.emplace_back("option" + std::to_string(i), "x");
  EXPECT_EQ(copied(kLandscape, options), "%%BeginFeature: *QVOrientation Landscape\n");
}

constexpr char kFaceUp[] =
    "%%BeginFeature: *QVOutputFace FaceUp\n(FaceUp) set\n%%EndFeature\n(FaceUp) later\n";
constexpr char kFaceDown[] =
    "%%BeginFeature: *QVOutputFace FaceDown\n(FaceDown) set\n%%EndFeature\n(FaceUp) later\n";

TEST_F(CopyLoop, TurnsFaceUpDownWithoutATrayThatDecides) {
  EXPECT_EQ(copied(kFaceUp), kFaceDown);
  EXPECT_EQ(copied(kFaceUp, {{"QVOutputTray", "Auto"}}), kFaceDown);
  EXPECT_EQ(copied(kFaceUp, {{"QVOutputTray", "FaceDown"}}), kFaceDown);
}

TEST_F(CopyLoop, LeavesFaceUpToATrayThatDecides) {
  EXPECT_EQ(copied(kFaceUp, {{"QVOutputTray", "Tray2"}}), kFaceUp);
}

TEST_F(CopyLoop, LooksAtTheThirdLineOfAFaceUpSection) {
  EXPECT_EQ(copied("%QVOutputFace FaceUp\nsecond\nBeginFeature QVHideJob\n(1) goes\nstays\n"),
            "%QVOutputFace FaceDown\nsecond\nBeginFeature QVHideJob\nstays\n");
}

TEST_F(CopyLoop, WritesALoneLineFeedForAFaceUpLineThatIsMissing) {
  EXPECT_EQ(copied("%QVOutputFace FaceUp\n"), "%QVOutputFace FaceDown\n\n");
  EXPECT_EQ(copied("%QVOutputFace FaceUp\nFaceUp\n"), "%QVOutputFace FaceDown\nFaceDown\n");
}

TEST_F(CopyLoop, DropsTheLastByteOfAFaceUpLineWhateverItIs) {
  EXPECT_EQ(copied("%QVOutputFace FaceUp!"), "%QVOutputFace FaceDown\n\n");
}

TEST_F(CopyLoop, EndsWhereTheInputEnds) {
  EXPECT_EQ(copied("%"), "%");
  EXPECT_EQ(copied("%%BeginFeature: *QVPageNumStartNum 1", kStartNumberFive),
            "%%BeginFeature: *QVPageNumStartNum 1");
  EXPECT_EQ(copied("%%BeginFeature: *QVPageNumStartNum 1\n", kStartNumberFive),
            "%%BeginFeature: *QVPageNumStartNum 1\n");
  EXPECT_EQ(copied("%%BeginFeature: *QVPageNumStartNum 1\n(1) se", kStartNumberFive),
            "%%BeginFeature: *QVPageNumStartNum 1\n(5) se");
}

// A job with every kind of line that the copy loop changes, for blocks that end anywhere in it.
struct RichJob {
  std::string input;
  std::string output;
  Options options{{"PrintPDE", ""}, {"QVPageNumStartNumValue", "5"}, {"QVOrientation", "1"}};

  RichJob() {
    add("%!PS-Adobe-3.0\n% an ordinary comment, QV\n50% of it\r\n");
    add(kPortrait, kLandscape);
    add("%%BeginFeature: *QVPageNumStartNum 1\n(1) set % tail\n",
        "%%BeginFeature: *QVPageNumStartNum 1\n(5) set % tail\n");
    add(kFaceUp, kFaceDown);
    for (const std::size_t length : {4094U, 4095U, 4096U, 4097U, 8192U, 131072U}) {
      add("%" + std::string(length, 'x') + "\n");
      add("%QV" + std::string(length, 'x') + "\n");
    }
    std::string binary(140'000, '\0');
    for (std::size_t i = 0; i < binary.size(); ++i) binary[i] = static_cast<char>(i * 7 % 251);
    add(binary + "\n");
    add("%%BeginFeature: *QVPageNumStartNum 1\n(1) set\n",
        "%%BeginFeature: *QVPageNumStartNum 1\n(5) set\n");
    add("the end %");
  }
  void add(const std::string& read, const std::string& written) {
    input += read;
    output += written;
  }
  void add(const std::string& both) { add(both, both); }
};

class CopyLoopBlocks : public CopyLoop, public testing::WithParamInterface<std::size_t> {};

TEST_P(CopyLoopBlocks, DoNotChangeTheOutput) {
  const RichJob job;
  EXPECT_TRUE(copied(job.input, job.options, GetParam()) == job.output);
}

INSTANTIATE_TEST_SUITE_P(Sizes, CopyLoopBlocks,
                         testing::Values(1, 2, 3, 4095, 4096, 4097, 131072, kWholeBlock));

TEST_F(CopyLoop, GivesTheSameOutputWithDiagnostics) {
  const RichJob job;
  tests::DiagnosticsOn diagnostics;
  diagnostics.nameFiles();
  EXPECT_TRUE(copied(job.input, job.options) == job.output);
  EXPECT_NE(diagnostics.content(job::file_2_Name), "no file");
}

}  // namespace
}  // namespace kelm::filter
