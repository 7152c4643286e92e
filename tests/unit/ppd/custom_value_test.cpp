// The PPD's custom parameters against the fields that the filter checks.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "job/text_fields.hpp"
#include "tests/unit/ppd/description.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::tests {
namespace {

constexpr job::TextField kFields[] = {
    job::kOwnerName,   job::kJobName,     job::kSecretNum,        job::kJobComment,
    job::kFormSelect1, job::kFormSelect2, job::kBarcodeSelection, job::kOutputProfile,
};

struct Number {
  const char* keyword;
  int min;
  int max;
};

// Per cent, and 1/100 mm.
constexpr Number kNumbers[] = {
    {"QVZoomRate", 50, 200},
    {"QVImageShiftFrontV", -2000, 2000},
    {"QVImageShiftFrontH", -2000, 2000},
    {"QVImageShiftBackV", -2000, 2000},
    {"QVImageShiftBackH", -2000, 2000},
    {"QVGutterDistance", 0, 5000},
    {"QVBookletGutterDistance", 0, 5000},
    {"QVGCCyan", 0, 200},
    {"QVGCMagenta", 0, 200},
    {"QVGCYellow", 0, 200},
    {"QVGCBlack", 0, 200},
    {"QVGCGray", 0, 200},
    {"QVGCRed", 0, 200},
};

// The only parameter of a custom value; null when there is none.
const ppd_cparam_t* parameterOf(const Description& description, const std::string& keyword) {
  ppd_coption_t* option = ppdFindCustomOption(description.ppd(), keyword.c_str());
  return option == nullptr ? nullptr : ppdFirstCustomParam(option);
}

TEST(CustomText, HasTheLimitsThatTheFilterChecks) {
  const Description description;
  for (const job::TextField& field : kFields) {
    const ppd_cparam_t* parameter = parameterOf(description, field.key);
    ASSERT_NE(nullptr, parameter) << field.key;
    const bool pin = field.rule == job::kSecretNumSet;
    EXPECT_EQ(pin ? PPD_CUSTOM_PASSCODE : PPD_CUSTOM_STRING, parameter->type) << field.key;
    // The limits of strings and passcodes are the same bytes of a union.
    EXPECT_EQ(field.min, std::size_t(parameter->minimum.custom_string)) << field.key;
    EXPECT_EQ(field.max, std::size_t(parameter->maximum.custom_string)) << field.key;
  }
}

TEST(CustomText, CanBeLeftOutByTheChoiceThatTheFilterTakesForNothing) {
  const Description description;
  for (const job::TextField& field : kFields) {
    EXPECT_TRUE(description.find(field.key)->hasChoice(field.offWord)) << field.key;
  }
}

TEST(CustomNumber, IsAWholeNumberWithinTheseLimits) {
  const Description description;
  for (const Number& number : kNumbers) {
    const ppd_cparam_t* parameter = parameterOf(description, number.keyword);
    ASSERT_NE(nullptr, parameter) << number.keyword;
    EXPECT_EQ(PPD_CUSTOM_INT, parameter->type) << number.keyword;
    EXPECT_EQ(number.min, parameter->minimum.custom_int) << number.keyword;
    EXPECT_EQ(number.max, parameter->maximum.custom_int) << number.keyword;
  }
}

TEST(CustomNumber, MayBeTheDefault) {
  const Description description;
  for (const Number& number : kNumbers) {
    const std::string choice = description.find(number.keyword)->defaultChoice;
    const int usual = choice == "OFF" ? 100 : std::stoi(choice);
    EXPECT_LE(number.min, usual) << number.keyword;
    EXPECT_GE(number.max, usual) << number.keyword;
  }
}

TEST(CustomValue, ExistsForNoOtherOption) {
  std::set<std::string> expected;
  for (const Number& number : kNumbers) expected.insert(number.keyword);
  for (const job::TextField& field : kFields) expected.insert(field.key);
  const Description description;
  std::set<std::string> found;
  for (const Option* option : description.printerOptions()) {
    if (option->hasChoice("Custom")) found.insert(option->keyword);
  }
  EXPECT_EQ(expected, found);
}

}  // namespace
}  // namespace kelm::tests
