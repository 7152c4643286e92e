// The wrappers of libcups' PPD calls pass on arguments and results.
// SPDX-License-Identifier: Apache-2.0
#include "job/ppd_calls.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "tests/support/child.hpp"

namespace kelm::job {
namespace {

class PpdCalls : public testing::Test {
 protected:
  PpdCalls() : ppd_(r_ppdOpenFile(KELM_PPDS_DIR "/forms.ppd")) {}
  ~PpdCalls() override { r_ppdClose(ppd_); }
  void SetUp() override { ASSERT_NE(ppd_, nullptr); }

  std::string marked(const char* keyword) {
    const ppd_choice_t* choice = r_ppdFindMarkedChoice(ppd_, keyword);
    return choice == nullptr ? "none" : choice->choice;
  }

  ppd_file_t* ppd_;
};

TEST_F(PpdCalls, OpenNothingWithoutAFile) { EXPECT_EQ(r_ppdOpenFile("/nonexistent"), nullptr); }

TEST_F(PpdCalls, FindAttributesByNameAndSpec) {
  const ppd_attr_t* name = r_ppdFindAttr(ppd_, "ModelName", nullptr);
  ASSERT_NE(name, nullptr);
  EXPECT_STREQ(name->value, "KELM IJ");
  const ppd_attr_t* font = r_ppdFindAttr(ppd_, "Font", "Courier");
  ASSERT_NE(font, nullptr);
  EXPECT_STREQ(font->spec, "Courier");
  EXPECT_EQ(r_ppdFindAttr(ppd_, "NoSuchAttribute", nullptr), nullptr);
}

TEST_F(PpdCalls, FindOptionsAndChoices) {
  ppd_option_t* option = r_ppdFindOption(ppd_, "QVFormSelect1");
  ASSERT_NE(option, nullptr);
  EXPECT_STREQ(option->keyword, "QVFormSelect1");
  const ppd_choice_t* choice = r_ppdFindChoice(option, "Form3");
  ASSERT_NE(choice, nullptr);
  EXPECT_STREQ(choice->choice, "Form3");
  EXPECT_EQ(r_ppdFindOption(ppd_, "QVNoSuchOption"), nullptr);
  EXPECT_EQ(r_ppdFindChoice(option, "Form12"), nullptr);
}

TEST_F(PpdCalls, MarkDefaultsAndOptions) {
  EXPECT_EQ(marked("QVFormSelect1"), "none");
  r_ppdMarkDefaults(ppd_);
  EXPECT_EQ(marked("QVFormSelect1"), "Off");
  EXPECT_EQ(r_ppdMarkOption(ppd_, "QVFormSelect1", "Form3"), 0);  // no conflicts
  EXPECT_EQ(marked("QVFormSelect1"), "Form3");
}

TEST_F(PpdCalls, MarkTheOptionsOfAJob) {
  cups_option_t* options = nullptr;
  const int count = cupsAddOption("QVFormSelect2", "Form4", 0, &options);
  EXPECT_EQ(r_cupsMarkOptions(ppd_, count, options), 0);
  EXPECT_EQ(marked("QVFormSelect2"), "Form4");
  cupsFreeOptions(count, options);
}

TEST_F(PpdCalls, LocaliseThePpd) {
  EXPECT_EQ(r_ppdLocalize(ppd_), 0);
  EXPECT_EQ(r_ppdLocalize(nullptr), -1);
}

TEST_F(PpdCalls, GetNoPpdWithoutAServer) {
  EXPECT_EQ(tests::inChild([] {
              setenv("CUPS_SERVER", "/nonexistent/cups.sock", 1);
              return r_cupsGetPPD2(CUPS_HTTP_DEFAULT, "printer") == nullptr ? "none" : "one";
            }),
            "none");
}

}  // namespace
}  // namespace kelm::job
