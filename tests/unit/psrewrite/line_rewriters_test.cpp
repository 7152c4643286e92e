// Rewriters of a single line that write it with a line feed of their own.
// SPDX-License-Identifier: Apache-2.0
#include "psrewrite/line_rewriters.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "tests/unit/psrewrite/written.hpp"

namespace kelm::psrewrite {
namespace {

Written orientation(std::string_view input, bool landscapeToPortrait) {
  return writtenFrom(input, [&](JobStream& stream, LineBuffer& line) {
    return outputQVCustomOrientation(stream, line, landscapeToPortrait);
  });
}

TEST(OutputQVCustomOrientation, TurnsEveryWordOfTheNextLine) {
  EXPECT_EQ(orientation("(Landscape) Landscape\nLandscape\n", true),
            (Written{true, "(Portrait) Portrait\n", "Landscape\n"}));
  EXPECT_EQ(orientation("(Portrait) Portrait\n", false),
            (Written{true, "(Landscape) Landscape\n", ""}));
}

TEST(OutputQVCustomOrientation, LeavesTheOtherWord) {
  EXPECT_EQ(orientation("(Portrait) set\n", true), (Written{true, "(Portrait) set\n", ""}));
  EXPECT_EQ(orientation("(Landscape) set\n", false), (Written{true, "(Landscape) set\n", ""}));
}

TEST(OutputQVCustomOrientation, AddsTheLineFeedThatIsMissing) {
  EXPECT_EQ(orientation("(Landscape)", true), (Written{true, "(Portrait)\n", ""}));
}

TEST(OutputQVCustomOrientation, WritesNothingAtTheEnd) {
  EXPECT_EQ(orientation("", true), (Written{false, "", ""}));
}

Written customSize(std::string_view input, const char* value) {
  return writtenFrom(input, [&](JobStream& stream, LineBuffer& line) {
    return outputFeatureByCustomSizeValue(stream, line, value);
  });
}

TEST(OutputFeatureByCustomSizeValue, FillsThePlaceholder) {
  EXPECT_EQ(customSize("(XXX) XXX Auto\nnext\n", "12"),
            (Written{true, "(12) 12 Auto\n", "next\n"}));
}

TEST(OutputFeatureByCustomSizeValue, WritesALineWithoutPlaceholder) {
  EXPECT_EQ(customSize("set\r\n", "12"), (Written{true, "set\r\n", ""}));
}

TEST(OutputFeatureByCustomSizeValue, WritesNothingAtTheEnd) {
  EXPECT_EQ(customSize("", "12"), (Written{false, "", ""}));
}

Written customSizeFlag(std::string_view input, const char* value) {
  return writtenFrom(input, [&](JobStream& stream, LineBuffer& line) {
    return outputFeatureByCustomSizeValueFLG(stream, line, value);
  });
}

TEST(OutputFeatureByCustomSizeValueFLG, ReplacesTheWordAuto) {
  EXPECT_EQ(customSizeFlag("(Auto) XXX Auto\nnext\n", "ON"),
            (Written{true, "(ON) XXX ON\n", "next\n"}));
}

TEST(OutputFeatureByCustomSizeValueFLG, LooksForLettersAsTheyAre) {
  EXPECT_EQ(customSizeFlag("(AUTO) set\n", "ON"), (Written{true, "(AUTO) set\n", ""}));
}

TEST(OutputFeatureByCustomSizeValueFLG, WritesNothingAtTheEnd) {
  EXPECT_EQ(customSizeFlag("", "ON"), (Written{false, "", ""}));
}

struct Title {
  const char* name;
  std::int32_t (*rewrite)(JobStream&, const char*, const char*, const char*);
};
void PrintTo(const Title& title, std::ostream* out) { *out << title.name; }

class TitleRewriter : public testing::TestWithParam<Title> {
 protected:
  // The length, then the output.
  static std::string rewritten(const char* line) {
    tests::MemorySource source("");
    tests::MemoryOutput output;
    JobStream stream(source, output.stream());
    const std::int32_t length = GetParam().rewrite(stream, line, "FaceUp", "FaceDown");
    return std::to_string(length) + ":" + output.text();
  }
};

TEST_P(TitleRewriter, ReplacesEveryTextAndGivesTheLengthBefore) {
  EXPECT_EQ(rewritten("a FaceUp FaceUp"), "15:a FaceDown FaceDown\n");
}

TEST_P(TitleRewriter, AddsALineFeedToAnyLine) {
  EXPECT_EQ(rewritten("plain"), "5:plain\n");
  EXPECT_EQ(rewritten("plain\n"), "6:plain\n\n");
  EXPECT_EQ(rewritten(""), "0:\n");
}

TEST_P(TitleRewriter, IsMinusOneWithoutALine) { EXPECT_EQ(rewritten(nullptr), "-1:"); }

INSTANTIATE_TEST_SUITE_P(Both, TitleRewriter,
                         testing::Values(Title{"Title", &outputFeatureByCustomSizeTitle},
                                         Title{"ValueTitle",
                                               &outputFeatureByCustomSizeValueTitle}));

}  // namespace
}  // namespace kelm::psrewrite
