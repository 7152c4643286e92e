// The "XXX" placeholder and the parenthesised value.
// SPDX-License-Identifier: Apache-2.0
#include "psrewrite/line_tools.hpp"

#include <gtest/gtest.h>

#include <string>

#include "tests/unit/psrewrite/written.hpp"

namespace kelm::psrewrite {
namespace {

TEST(ReplaceStr, ReplacesEveryPlaceholder) {
  EXPECT_EQ(replace_str("aXXXbXXX", "XXX", "12"), "a12b12");
}

TEST(ReplaceStr, GivesAnEqualCopyOfATextWithoutPlaceholder) {
  EXPECT_EQ(replace_str("nothing here\n", "XXX", "12"), "nothing here\n");
  EXPECT_EQ(replace_str("", "XXX", "12"), "");
}

TEST(ReplaceStr, TakesTextsOfAnyLength) {
  EXPECT_EQ(replace_str("-XXX-", "XXX", "abc"), "-abc-");
  EXPECT_EQ(replace_str("-XXX-", "XXX", "longer than before"), "-longer than before-");
  EXPECT_EQ(replace_str("-XXX-", "XXX", ""), "--");
}

TEST(ReplaceStr, ResumesAfterAMatch) {
  EXPECT_EQ(replace_str("aaa", "aa", "b"), "ba");
  EXPECT_EQ(replace_str("XXXXXXX", "XXX", "1"), "11X");
}

TEST(ReplaceStr, DoesNotLookAtWhatItPutIn) {
  EXPECT_EQ(replace_str("XXX", "XXX", "XXXX"), "XXXX");
  EXPECT_EQ(replace_str("XaX", "a", "XXX"), "XXXXX");
}

TEST(ReplaceStr, FindsNoEmptyText) { EXPECT_EQ(replace_str("(a) b", "", "1"), "(a) b"); }

TEST(ReplaceStr, LooksForLettersAsTheyAre) { EXPECT_EQ(replace_str("xxx", "XXX", "1"), "xxx"); }

// The rewritten line, and the line as it is left for the log.
std::string erased(std::string line, const std::string& value, std::string* left = nullptr) {
  const auto rewritten = erase_str(line, value);
  if (left != nullptr) *left = line;
  return rewritten.value_or("nothing");
}

TEST(EraseStr, PutsTheValueIntoTheBracketsAndLeavesTheLine) {
  std::string left;
  EXPECT_EQ(erased("(5) setstart\n", "7", &left), "(7) setstart\n");
  EXPECT_EQ(left, "(5) setstart\n");
}

TEST(EraseStr, LosesEverythingAfterASecondBracket) {
  std::string left;
  EXPECT_EQ(erased("(5) (x) y", "7", &left), "(7) (x");
  EXPECT_EQ(left, "(5) (x");
}

TEST(EraseStr, LosesWhateverStandsBeforeTheBracket) {
  std::string left;
  EXPECT_EQ(erased("  /key (5) set\n", "7", &left), "(7) set\n");
  EXPECT_EQ(left, "  /key (5) set\n");
}

TEST(EraseStr, TakesARunOfBracketsAsOne) {
  std::string left;
  EXPECT_EQ(erased("(5))) set\n", "7", &left), "(7) set\n");
  EXPECT_EQ(left, "(5) set\n");
}

TEST(EraseStr, SkipsBracketsInFront) {
  std::string left;
  EXPECT_EQ(erased("))(5) set\n", "7", &left), "(7) set\n");
  EXPECT_EQ(left, "(5) set\n");
}

TEST(EraseStr, WritesNullForALineWithoutBracket) {
  std::string left;
  EXPECT_EQ(erased("setstart\n", "7", &left), "(7)(null)");
  EXPECT_EQ(left, "setstart\n)(null)");
}

TEST(EraseStr, WritesNullWhenNothingFollowsTheBracket) {
  EXPECT_EQ(erased("(5)", "7"), "(7)(null)");
  EXPECT_EQ(erased("(5))", "7"), "(7)(null)");
  EXPECT_EQ(erased("", "7"), "(7)(null)");
  EXPECT_EQ(erased(")", "7"), "(7)(null)");
}

TEST(EraseStr, KeepsALineFeedAlone) { EXPECT_EQ(erased("(5)\n", "7"), "(7)\n"); }

TEST(EraseStr, TakesEmptyAndLongValues) {
  const std::string value(100'000, 'v');
  EXPECT_EQ(erased("(5) set\n", ""), "() set\n");
  EXPECT_EQ(erased("(5) set\n", value), "(" + value + ") set\n");
}

TEST(EraseStr, WritesBracketsInTheValueAsTheyAre) {
  EXPECT_EQ(erased("(5) set\n", "a)b(%s"), "(a)b(%s) set\n");
}

Written replacing(std::string_view input, const char* value) {
  return writtenFrom(input, [&](JobStream& stream, LineBuffer& line) {
    return outputReplacingValue(stream, line, "ignored", value);
  });
}

TEST(OutputReplacingValue, FillsEveryPlaceholderOfTheNextLine) {
  EXPECT_EQ(replacing("(XXX) XXX set\n(XXX)\n", "12"), (Written{true, "(12) 12 set\n", "(XXX)\n"}));
}

TEST(OutputReplacingValue, WritesALineWithoutPlaceholderAsItIs) {
  EXPECT_EQ(replacing("set\r\n", "12"), (Written{true, "set\r\n", ""}));
}

TEST(OutputReplacingValue, AddsNoLineFeed) {
  EXPECT_EQ(replacing("(XXX) set", "12"), (Written{true, "(12) set", ""}));
}

TEST(OutputReplacingValue, WritesNothingAtTheEnd) {
  EXPECT_EQ(replacing("", "12"), (Written{false, "", ""}));
}

TEST(OutputReplacingValue, ReadsAtMost4095Bytes) {
  const std::string line(4095, 'x');
  EXPECT_EQ(replacing(line + "XXX\n", "12"), (Written{true, line, "XXX\n"}));
}

TEST(OutputReplacingValue, LosesWhatFollowsAZeroByte) {
  EXPECT_EQ(replacing(std::string_view("XXX\0XXX\nnext\n", 13), "12"),
            (Written{true, "12", "next\n"}));
}

TEST(OutputReplacingValue, ClearsTheBufferOfTheLineBefore) {
  const Written actual = writtenFrom("ab", [](JobStream& stream, LineBuffer& line) {
    line.overwrite("the line before");
    const bool wrote = outputReplacingValue(stream, line, nullptr, "");
    EXPECT_EQ(std::string(line.data(), 6), std::string("ab\0\0\0\0", 6));
    return wrote;
  });
  EXPECT_EQ(actual, (Written{true, "ab", ""}));
}

}  // namespace
}  // namespace kelm::psrewrite
