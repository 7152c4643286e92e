// The functions that feature writers share.
// SPDX-License-Identifier: Apache-2.0
#include "psrewrite/feature_tools.hpp"

#include <gtest/gtest.h>

#include <string>

#include "tests/unit/psrewrite/written.hpp"

namespace kelm::psrewrite {
namespace {

using tests::TestJob;

TEST(ReadValueLine, ClearsTheBufferAndKeepsTheEnding) {
  writtenFrom("ab\ncd", [](JobStream& stream, LineBuffer& line) {
    line.overwrite("the line before");
    EXPECT_TRUE(readValueLine(stream, line));
    EXPECT_EQ(std::string(line.data(), 6), std::string("ab\n\0\0\0", 6));
    EXPECT_TRUE(readValueLine(stream, line));
    EXPECT_STREQ(line.text(), "cd");
    EXPECT_FALSE(readValueLine(stream, line));
    EXPECT_STREQ(line.text(), "");
    return true;
  });
}

TEST(ReadValueLine, ReadsAtMost4095Bytes) {
  const std::string bytes = std::string(4096, 'x') + "\n";
  EXPECT_EQ(writtenFrom(bytes, readValueLine).rest, "x\n");
}

Written byValue(const TestJob::Options& options, std::string_view input) {
  TestJob job(options);
  return writtenFrom(input, [&](JobStream& stream, LineBuffer& line) {
    return outputFeatureByReplacingValue(stream, line, *job, "Key", "default");
  });
}

TEST(OutputFeatureByReplacingValue, TakesTheOptionElseTheDefault) {
  EXPECT_EQ(byValue({{"Key", "own"}}, "(1) set\nx"), (Written{true, "(own) set\n", "x"}));
  EXPECT_EQ(byValue({}, "(1) set\nx"), (Written{true, "(default) set\n", "x"}));
  EXPECT_EQ(byValue({{"key", "other"}}, "(1) set\n"), (Written{true, "(default) set\n", ""}));
}

TEST(OutputFeatureByReplacingValue, TakesACustomValueAsItIs) {
  EXPECT_EQ(byValue({{"Key", "Custom.a.b"}}, "(1) set\n(2) next\n"),
            (Written{true, "(Custom.a.b) set\n", "(2) next\n"}));
}

TEST(OutputFeatureByReplacingValue, WritesNothingAtTheEnd) {
  EXPECT_EQ(byValue({{"Key", "own"}}, ""), (Written{false, "", ""}));
}

Written byText(const TestJob::Options& options, std::string_view input) {
  TestJob job(options);
  return writtenFrom(input, [&](JobStream& stream, LineBuffer& line) {
    return outputCustomTextByReplacingValue(stream, line, *job, "Key", "12");
  });
}

TEST(OutputCustomTextByReplacingValue, FillsThePlaceholderOfTheNextLine) {
  EXPECT_EQ(byText({{"Key", "plain"}}, "(XXX)\n(XXX)\n"), (Written{true, "(12)\n", "(XXX)\n"}));
  EXPECT_EQ(byText({}, "(XXX)\n(XXX)\n"), (Written{true, "(12)\n", "(XXX)\n"}));
}

TEST(OutputCustomTextByReplacingValue, DiscardsOneLineForACustomChoice) {
  EXPECT_EQ(byText({{"Key", "Custom.a"}}, "extra XXX\n(XXX)\nx"), (Written{true, "(12)\n", "x"}));
  EXPECT_EQ(byText({{"Key", "Custom."}}, "extra XXX\n(XXX)\nx"), (Written{true, "(12)\n", "x"}));
  EXPECT_EQ(byText({{"Key", "a Custom.b"}}, "extra\n(XXX)\nx"), (Written{true, "(12)\n", "x"}));
}

TEST(OutputCustomTextByReplacingValue, DiscardsNoneForTheWordAlone) {
  EXPECT_EQ(byText({{"Key", "Custom"}}, "(XXX)\nx"), (Written{true, "(12)\n", "x"}));
  EXPECT_EQ(byText({{"Key", "custom.a"}}, "(XXX)\nx"), (Written{true, "(12)\n", "x"}));
}

TEST(OutputCustomTextByReplacingValue, WritesNothingAtTheEnd) {
  EXPECT_EQ(byText({}, ""), (Written{false, "", ""}));
  EXPECT_EQ(byText({{"Key", "Custom.a"}}, ""), (Written{false, "", ""}));
  EXPECT_EQ(byText({{"Key", "Custom.a"}}, "extra XXX\n"), (Written{false, "", ""}));
}

Written byOwnText(const TestJob::Options& options, std::string_view input, bool asHex) {
  TestJob job(options);
  return writtenFrom(input, [&](JobStream& stream, LineBuffer& line) {
    return outputCustomTextFeatureByReplacingValue(stream, line, *job, "Key", "de", asHex);
  });
}

TEST(OutputCustomTextFeatureByReplacingValue, WritesTheTextInHexOrRaw) {
  EXPECT_EQ(byOwnText({{"Key", "Custom.ab"}}, "extra\n(XXX)\n", true),
            (Written{true, "(6162)\n", ""}));
  EXPECT_EQ(byOwnText({{"Key", "Custom.ab"}}, "extra\n(XXX)\n", false),
            (Written{true, "(ab)\n", ""}));
}

TEST(OutputCustomTextFeatureByReplacingValue, TakesTheDefaultForHexOnly) {
  EXPECT_EQ(byOwnText({}, "(XXX)\n", true), (Written{true, "(6465)\n", ""}));
  EXPECT_EQ(byOwnText({}, "(XXX)\n", false), (Written{true, "()\n", ""}));
}

TEST(OutputCustomTextFeatureByReplacingValue, WritesNothingAtTheEnd) {
  EXPECT_EQ(byOwnText({}, "", true), (Written{false, "", ""}));
}

TEST(WriteWithValue, WritesTheLineOfTheBuffer) {
  const Written actual = writtenFrom("next", [](JobStream& stream, LineBuffer& line) {
    line.overwrite("(1) set\n");
    return writeWithValue(stream, line, "2");
  });
  EXPECT_EQ(actual, (Written{true, "(2) set\n", "next"}));
}

constexpr char kTwoLines[] = "one\ntwo\n";

TEST(PlainBehaviour, DropsTheLine) {
  TestJob job;
  EXPECT_EQ(written(drop, *job, kTwoLines), (Written{false, "", "two\n"}));
  EXPECT_EQ(written(dropUnlogged, *job, kTwoLines), (Written{false, "", "two\n"}));
}

TEST(PlainBehaviour, CopiesTheLine) {
  TestJob job;
  EXPECT_EQ(written(copy, *job, kTwoLines), (Written{true, "one\n", "two\n"}));
  EXPECT_EQ(written(copyUnlogged, *job, kTwoLines), (Written{true, "one\n", "two\n"}));
}

TEST(PlainBehaviour, LeavesTheLine) {
  TestJob job;
  EXPECT_EQ(written(leave, *job, kTwoLines), (Written{false, "", kTwoLines}));
}

TEST(PlainBehaviour, WritesAnEmptyTextAtTheEnd) {
  TestJob job;
  for (const auto behaviour : {drop, dropUnlogged, copy, copyUnlogged, leave}) {
    EXPECT_EQ(written(behaviour, *job, ""), (Written{false, "", ""}));
  }
}

}  // namespace
}  // namespace kelm::psrewrite
