// Numbers read from the texts of a job.
// SPDX-License-Identifier: Apache-2.0
#include "base/number_text.hpp"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <limits>
#include <string>

#include "tests/support/temporary_directory.hpp"

namespace kelm::base {
namespace {

TEST(LeadingInteger, ReadsDigitsUpToAnythingElse) {
  EXPECT_EQ(leadingInteger("842pt"), 842);
  EXPECT_EQ(leadingInteger("12.9"), 12);
}

TEST(LeadingInteger, TakesSpacesAndASign) {
  EXPECT_EQ(leadingInteger(" \t-7"), -7);
  EXPECT_EQ(leadingInteger("+7"), 7);
}

TEST(LeadingInteger, IsZeroWithoutDigits) {
  EXPECT_EQ(leadingInteger(""), 0);
  EXPECT_EQ(leadingInteger("x5"), 0);
  EXPECT_EQ(leadingInteger("-"), 0);
}

TEST(LeadingInteger, ReadsDecimalOnly) {
  EXPECT_EQ(leadingInteger("010"), 10);
  EXPECT_EQ(leadingInteger("0x10"), 0);
}

TEST(LeadingInteger, IsCutTo32Bits) {
  EXPECT_EQ(leadingInteger("2147483647"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(leadingInteger("2147483648"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(leadingInteger("4294967301"), 5);
}

TEST(LeadingInteger, StopsAtTheLimitOfLongBeforeTheCut) {
  EXPECT_EQ(leadingInteger("99999999999999999999"), -1);
  EXPECT_EQ(leadingInteger("-99999999999999999999"), 0);
}

TEST(LeadingReal, ReadsFractionsAndExponents) {
  EXPECT_EQ(leadingReal("595.5pt"), 595.5);
  EXPECT_EQ(leadingReal(" -1.5e2"), -150);
  EXPECT_EQ(leadingReal(".5"), 0.5);
}

TEST(LeadingReal, IsZeroWithoutANumber) {
  EXPECT_EQ(leadingReal(""), 0);
  EXPECT_EQ(leadingReal("pt"), 0);
}

TEST(LeadingReal, EndsAtAComma) { EXPECT_EQ(leadingReal("1,5"), 1); }

// A locale with a decimal comma, made for the test.
TEST(LeadingReal, HasAPointInEveryLanguage) {
  const tests::TemporaryDirectory directory;
  const std::string locale = directory.path() / "comma";
  ASSERT_EQ(std::system(("localedef -i de_DE -f ISO-8859-1 " + locale + " >/dev/null").c_str()), 0);
  setenv("LOCPATH", directory.path().c_str(), 1);
  ASSERT_NE(std::setlocale(LC_ALL, "comma"), nullptr);
  EXPECT_EQ(std::strtod("1,5", nullptr), 1.5);
  EXPECT_EQ(leadingReal("1.5"), 1.5);
  EXPECT_EQ(leadingReal("1,5"), 1);
  std::setlocale(LC_ALL, "C");
  unsetenv("LOCPATH");
}

TEST(WholeReal, ReadsDigitsWithSignPointAndExponent) {
  EXPECT_EQ(wholeReal("595"), 595);
  EXPECT_EQ(wholeReal("-0.5"), -0.5);
  EXPECT_EQ(wholeReal(".25"), 0.25);
  EXPECT_EQ(wholeReal("2."), 2);
  EXPECT_EQ(wholeReal("25e-1"), 2.5);
  EXPECT_EQ(wholeReal("1E2"), 100);
}

TEST(WholeReal, EndsWithItsText) { EXPECT_EQ(wholeReal(std::string_view("595842", 3)), 595); }

TEST(WholeReal, IsNothingInOtherText) {
  for (const char* text : {"", " 1", "1 ", "+1", "1pt", "1e", "-", ".", "1,5", "0x10", "inf", "nan",
                           "1.2.3", "--1", "1e999"}) {
    EXPECT_EQ(wholeReal(text), std::nullopt) << text;
  }
}

TEST(CutTo32Bits, KeepsTheLowBits) {
  static_assert(cutTo32Bits(7) == 7);
  static_assert(cutTo32Bits(-7) == -7);
  EXPECT_EQ(cutTo32Bits(0x1'0000'0005), 5);
  EXPECT_EQ(cutTo32Bits(0x8000'0000), std::numeric_limits<std::int32_t>::min());
}

}  // namespace
}  // namespace kelm::base
