// The printer's limits for each text.
// SPDX-License-Identifier: Apache-2.0
#include "job/text_fields.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "platform/fake/fake_platform.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::job {
namespace {

using tests::TestJob;

struct Row {
  const TextField* field;
  const char* key;
  const char* offWord;
  std::size_t min;
  std::size_t max;
  const char* fails;  // a character that the rule refuses; empty when it refuses none
};
void PrintTo(const Row& row, std::ostream* out) { *out << row.key; }

const Row kRows[] = {
    {&kBarcodeSelection, "QVBarcodeSelection", "OFF", 1, 30, ""},
    {&kOutputProfile, "QVOutputProfileSelection", "Auto", 1, 255, "("},
    {&kOwnerName, "QVOwnerNameInfo", "OFF", 1, 20, "/"},
    {&kJobName, "QVJobNameInfo", "OFF", 1, 255, "\xE2\x80\x98"},
    {&kSecretNum, "QVSecretNumInfo", "OFF", 0, 8, "a"},
    {&kJobComment, "QVJobComment", "OFF", 1, 128, ":"},
    {&kFormSelect1, "QVFormSelect1", "Off", 1, 128, "*"},
    {&kFormSelect2, "QVFormSelect2", "Off", 1, 128, "\xC2\xA6"},
};

class EveryField : public testing::TestWithParam<Row> {
 protected:
  bool accepts(const std::string& value) {
    TestJob job({{GetParam().key, value}});
    return GetParam().field->isValid(*job);
  }
  platform::FakePlatform platform_;
};

TEST_P(EveryField, AcceptsTextsWithinItsBounds) {
  EXPECT_EQ(accepts(""), GetParam().min == 0);
  EXPECT_TRUE(accepts("Custom.1"));
  EXPECT_TRUE(accepts("Custom." + std::string(GetParam().max, '1')));
  EXPECT_FALSE(accepts("Custom." + std::string(GetParam().max + 1, '1')));
}

TEST_P(EveryField, KnowsItsOffWord) { EXPECT_FALSE(accepts(GetParam().offWord)); }

TEST_P(EveryField, RefusesWhatItsRuleRefuses) {
  const std::string character = GetParam().fails;
  EXPECT_EQ(accepts("1" + character), character.empty());
}

TEST_P(EveryField, NeedsItsOption) {
  TestJob job;
  EXPECT_FALSE(GetParam().field->isValid(*job));
}

TEST_P(EveryField, GivesItsTextRawAndInHex) {
  TestJob job(TestJob::Options{{GetParam().key, "Custom.4\t2.7"}});
  EXPECT_EQ(GetParam().field->rawText(*job), "4\t2");
  EXPECT_EQ(GetParam().field->hexText(*job), "34 932");
}

TEST_P(EveryField, GivesNothingOrTheDefaultWithoutItsOption) {
  TestJob job;
  EXPECT_EQ(GetParam().field->rawText(*job), "");
  EXPECT_EQ(GetParam().field->hexText(*job), "");
  EXPECT_EQ(GetParam().field->hexText(*job, "ab"), "6162");
}

INSTANTIATE_TEST_SUITE_P(Table, EveryField, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.key); });

TEST(BarcodeField, RefusesNoCharacter) {
  TestJob job(TestJob::Options{{"QVBarcodeSelection", "Custom./[]:+<>=;,*?\\"}});
  EXPECT_TRUE(kBarcodeSelection.isValid(*job));
}

TEST(TextField, HasNoHexOfATextThatFitsNoBuffer) {
  TestJob job({{"QVJobComment", std::string(2049, 'a')}});
  EXPECT_EQ(kJobComment.hexText(*job), "");
  EXPECT_EQ(kJobComment.hexText(*job, "default"), "");
}

TEST(NamedChoice, IsTheChoiceOfTheNameOrLabel) {
  TestJob byName(TestJob::Options{{"QVFormSelect1", "Form3"}}, KELM_PPDS_DIR "/forms.ppd");
  EXPECT_STREQ(kFormSelect1.namedChoice(*byName), "Form3");
  TestJob byLabel(TestJob::Options{{"QVFormSelect1", "Form sheet 3"}}, KELM_PPDS_DIR "/forms.ppd");
  EXPECT_STREQ(kFormSelect1.namedChoice(*byLabel), "Form3");
  TestJob custom(TestJob::Options{{"QVFormSelect1", "Custom.Form sheet 3"}},
                 KELM_PPDS_DIR "/forms.ppd");
  EXPECT_STREQ(kFormSelect1.namedChoice(*custom), "Form3");
}

TEST(NamedChoice, IsNullForATextOfOnesOwnAndWithoutPpd) {
  TestJob own(TestJob::Options{{"QVFormSelect1", "Custom.Letterhead"}}, KELM_PPDS_DIR "/forms.ppd");
  EXPECT_EQ(kFormSelect1.namedChoice(*own), nullptr);
  TestJob withoutPpd(TestJob::Options{{"QVFormSelect1", "Form3"}});
  EXPECT_EQ(kFormSelect1.namedChoice(*withoutPpd), nullptr);
}

}  // namespace
}  // namespace kelm::job
