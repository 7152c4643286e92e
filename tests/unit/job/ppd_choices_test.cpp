// What the queue's PPD says about an option.
// SPDX-License-Identifier: Apache-2.0
#include "job/ppd_choices.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "job/ppd_calls.hpp"
#include "tests/support/child.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::job {
namespace {

using tests::TestJob;

constexpr char kForms[] = KELM_PPDS_DIR "/forms.ppd";
constexpr char kSwappedLabels[] = KELM_PPDS_DIR "/swapped-labels.ppd";
constexpr char kGermanForms[] = KELM_PPDS_DIR "/forms-de.ppd";

TEST(GetDefaultValue, IsThePpdsDefaultChoice) {
  TestJob job(TestJob::Options{{"QVFormSelect1", "Form3"}}, kForms);
  EXPECT_STREQ(getDefaultValue(&*job, "QVFormSelect1"), "Off");
  EXPECT_STREQ(getDefaultValue(&*job, "QVOutputProfileSelection"), "Auto");
}

TEST(GetDefaultValue, IsNullWithoutTheOption) {
  TestJob job({}, kForms);
  EXPECT_EQ(getDefaultValue(&*job, "QVNoSuchOption"), nullptr);
}

TEST(GetDefaultValue, IsNullWithoutAPpdOrARecord) {
  TestJob job;
  EXPECT_EQ(getDefaultValue(&*job, "QVFormSelect1"), nullptr);
  EXPECT_EQ(getDefaultValue(nullptr, "QVFormSelect1"), nullptr);
}

std::string choiceNamed(const char* ppd, const char* text) {
  TestJob job({}, ppd);
  const char* choice = checkPPDKeywordWithLocalizeText(&*job, "QVFormSelect1", text);
  return choice == nullptr ? "null" : choice;
}

TEST(CheckPPDKeywordWithLocalizeText, FindsAChoiceByItsName) {
  EXPECT_EQ(choiceNamed(kForms, "Form3"), "Form3");
  EXPECT_EQ(choiceNamed(kForms, "CustomForm"), "CustomForm");
}

TEST(CheckPPDKeywordWithLocalizeText, FindsAChoiceByItsLabel) {
  EXPECT_EQ(choiceNamed(kForms, "Form sheet 10"), "Form10");
  EXPECT_EQ(choiceNamed(kForms, "Do not use"), "Off");
}

TEST(CheckPPDKeywordWithLocalizeText, IsNullForAnUnknownText) {
  EXPECT_EQ(choiceNamed(kForms, "Letterhead"), "null");
  EXPECT_EQ(choiceNamed(kForms, ""), "null");
}

TEST(CheckPPDKeywordWithLocalizeText, ComparesExactly) {
  EXPECT_EQ(choiceNamed(kForms, "form3"), "null");
  EXPECT_EQ(choiceNamed(kForms, "Form sheet"), "null");
  EXPECT_EQ(choiceNamed(kForms, "Form3 "), "null");
}

TEST(CheckPPDKeywordWithLocalizeText, TakesTheFirstChoiceOfThePpd) {
  EXPECT_EQ(choiceNamed(kSwappedLabels, "Form2"), "Form1");  // its label comes first
  EXPECT_EQ(choiceNamed(kSwappedLabels, "Form1"), "Form1");  // its name comes first
  EXPECT_EQ(choiceNamed(kSwappedLabels, "Form7"), "CustomForm");
}

TEST(CheckPPDKeywordWithLocalizeText, IsNullWithoutTheOptionThePpdOrTheRecord) {
  TestJob job({}, kForms);
  EXPECT_EQ(checkPPDKeywordWithLocalizeText(&*job, "QVNoSuchOption", "Form3"), nullptr);
  TestJob withoutPpd;
  EXPECT_EQ(checkPPDKeywordWithLocalizeText(&*withoutPpd, "QVFormSelect1", "Form3"), nullptr);
  EXPECT_EQ(checkPPDKeywordWithLocalizeText(nullptr, "QVFormSelect1", "Form3"), nullptr);
}

std::string choiceInGerman(const char* text) {
  return tests::inChild([&] {
    setenv("LC_MESSAGES", "de", 1);
    TestJob job({}, kGermanForms);
    job::r_ppdLocalize(job->ppd);
    const char* choice = checkPPDKeywordWithLocalizeText(&*job, "QVFormSelect1", text);
    return std::string(choice == nullptr ? "null" : choice);
  });
}

TEST(CheckPPDKeywordWithLocalizeText, FindsAChoiceByItsLabelInTheUsersLanguage) {
  EXPECT_EQ(choiceInGerman("Formular Nummer 3"), "Form3");
  EXPECT_EQ(choiceInGerman("Formular f\xC3\xBCr alle"), "CustomForm");
  EXPECT_EQ(choiceInGerman("Form3"), "Form3");
}

TEST(CheckPPDKeywordWithLocalizeText, KnowsOneLanguageAtATime) {
  EXPECT_EQ(choiceInGerman("Form sheet 3"), "null");
}

}  // namespace
}  // namespace kelm::job
