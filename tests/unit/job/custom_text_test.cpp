// Custom values.
// SPDX-License-Identifier: Apache-2.0
#include "job/custom_text.hpp"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/memory_job.hpp"

namespace kelm::job {
namespace {

using tests::TestJob;

TEST(CustomText, IsWhatFollowsTheWord) { EXPECT_EQ(customText("Custom.Hello"), "Hello"); }

TEST(CustomText, EndsAtAFullStopInIt) { EXPECT_EQ(customText("Custom.a.b"), "a"); }

TEST(CustomText, IsEmptyWhenNothingFollows) {
  EXPECT_EQ(customText("Custom."), "");
  EXPECT_EQ(customText("Custom..b"), "");
}

TEST(CustomText, OfAValueWithoutTheWordIsTheWholeValue) {
  EXPECT_EQ(customText("Hello"), "Hello");
  EXPECT_EQ(customText("a.b.c"), "a.b.c");
  EXPECT_EQ(customText("Custom"), "Custom");
  EXPECT_EQ(customText("custom.a.b"), "custom.a.b");
  EXPECT_EQ(customText(""), "");
}

TEST(CustomText, StandsBetweenTheFirstTwoFullStopsWhereverTheWordIs) {
  EXPECT_EQ(customText("MyCustom.a.b"), "a");
  EXPECT_EQ(customText("x.Custom.y"), "Custom");
}

std::string textOf(const TestJob::Options& options, std::size_t size = 4096) {
  TestJob job(options);
  std::string out = "as it was";
  getCustomTextValue(&*job, "QVJobComment", out, size);
  return out;
}

TEST(GetCustomTextValue, TakesTheCustomText) {
  EXPECT_EQ(textOf({{"QVJobComment", "Custom.Hello"}}), "Hello");
}

TEST(GetCustomTextValue, TakesAnyOtherValueWhole) {
  EXPECT_EQ(textOf({{"QVJobComment", "OFF"}}), "OFF");
}

TEST(GetCustomTextValue, LeavesItsResultWithoutTheOption) {
  EXPECT_EQ(textOf({}), "as it was");
  EXPECT_EQ(textOf({{"QVJOBCOMMENT", "Custom.Hello"}}), "as it was");
}

TEST(GetCustomTextValue, LeavesItsResultForAnEmptyText) {
  EXPECT_EQ(textOf({{"QVJobComment", "Custom."}}), "as it was");
  EXPECT_EQ(textOf({{"QVJobComment", ""}}), "as it was");
}

TEST(GetCustomTextValue, TakesOnlyWhatIsShorterThanTheSize) {
  EXPECT_EQ(textOf({{"QVJobComment", "Custom.1234"}}, 5), "1234");
  EXPECT_EQ(textOf({{"QVJobComment", "Custom.12345"}}, 5), "as it was");
  EXPECT_EQ(textOf({{"QVJobComment", "12345"}}, 5), "as it was");
}

TEST(GetCustomTextValue, LeavesItsResultWithoutARecord) {
  std::string out = "as it was";
  getCustomTextValue(nullptr, "QVJobComment", out, 4096);
  EXPECT_EQ(out, "as it was");
}

std::string hexOf(const TestJob::Options& options, const char* defaultText = "",
                  std::size_t size = 4096) {
  TestJob job(options);
  std::string out = "as it was";
  getCustomTextHexValue(&*job, "QVJobComment", out, size, defaultText);
  return out;
}

TEST(GetCustomTextHexValue, WritesTheTextInHex) {
  EXPECT_EQ(hexOf({{"QVJobComment", "Custom.Hello"}}), "48656C6C6F");
  EXPECT_EQ(hexOf({{"QVJobComment", "Custom.a.b"}}), "61");
  EXPECT_EQ(hexOf({{"QVJobComment", "Hello"}}), "48656C6C6F");
}

TEST(GetCustomTextHexValue, WritesATabAsASpaceAndNine) {
  EXPECT_EQ(hexOf({{"QVJobComment", "Custom.a\tb"}}), "61 962");
}

TEST(GetCustomTextHexValue, TakesBytesAsUnsigned) {
  EXPECT_EQ(hexOf({{"QVJobComment", "Custom.\xC3\xA9"}}), "C3A9");
}

TEST(GetCustomTextHexValue, TakesTheDefaultWithoutATextOfItsOwn) {
  EXPECT_EQ(hexOf({}, "ab"), "6162");
  EXPECT_EQ(hexOf({{"QVJobComment", ""}}, "ab"), "6162");
  EXPECT_EQ(hexOf({{"QVJobComment", "Custom."}}, "ab"), "6162");
}

TEST(GetCustomTextHexValue, LeavesItsResultWithoutAnyText) {
  EXPECT_EQ(hexOf({}), "as it was");
  EXPECT_EQ(hexOf({{"QVJobComment", "Custom."}}), "as it was");
}

TEST(GetCustomTextHexValue, TakesTextsUpToHalfTheSize) {
  EXPECT_EQ(hexOf({{"QVJobComment", "123"}}, "", 6), "313233");
  EXPECT_EQ(hexOf({{"QVJobComment", "123"}}, "", 5), "as it was");
  EXPECT_EQ(hexOf({{"QVJobComment", std::string(2048, 'a')}}).size(), 4096U);
  EXPECT_EQ(hexOf({{"QVJobComment", std::string(2049, 'a')}}), "as it was");
}

TEST(GetCustomTextHexValue, DoesNotFallBackToTheDefaultForALongText) {
  EXPECT_EQ(hexOf({{"QVJobComment", "1234"}}, "d", 6), "as it was");
}

}  // namespace
}  // namespace kelm::job
