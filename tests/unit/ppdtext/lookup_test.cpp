// Lookup and marking in records that were made from texts.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/ppdtext/test_record.hpp"

namespace kelm::ppdtext {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kText =
    "*Foo: \"first\"\n*foo: \"small\"\n*Foo: \"second\"\n"
    "*OpenUI *PageSize/Paper: PickOne\n*DefaultPageSize: A3\n*PageSize A3/A3: \"3\"\n"
    "*PageSize A4/A4: \"4\"\n*PageSize Maß/Mass: \"5\"\n*CloseUI: *PageSize\n"
    "*OpenUI *Fold/Folding: PickOne\n*DefaultFold: one\n*Fold One/First: \"1\"\n*CloseUI: *Fold\n";

class Lookup : public testing::Test {
 protected:
  // The marked choices of the option, in order.
  std::vector<std::string> markedIn(const char* option) const {
    std::vector<std::string> marked;
    for (const ppd_choice_t& choice :
         choicesOf(*KelmPPD::ppdFindOption_optionKey_(ppd(), option))) {
      if (choice.marked == 1) marked.emplace_back(choice.choice);
    }
    return marked;
  }
  ppd_file_t* ppd() const { return record.get(); }

  const Record record = recordOf(kText);
};

TEST_F(Lookup, FindsTheFirstAttributeOfExactlyTheName) {
  EXPECT_STREQ(KelmPPD::ppdFindAttr_attrName_attrSpcec_(ppd(), "Foo", nullptr)->value, "first");
  EXPECT_STREQ(KelmPPD::ppdFindAttr_attrName_attrSpcec_(ppd(), "foo", nullptr)->value, "small");
  EXPECT_EQ(KelmPPD::ppdFindAttr_attrName_attrSpcec_(ppd(), "FOO", nullptr), nullptr);
}

TEST_F(Lookup, TakesAnEmptySpecForNone) {
  EXPECT_STREQ(KelmPPD::ppdFindAttr_attrName_attrSpcec_(ppd(), "Foo", "")->value, "first");
}

TEST_F(Lookup, FindsNoAttributeOfASpecInARecordOfAText) {
  EXPECT_EQ(KelmPPD::ppdFindAttr_attrName_attrSpcec_(ppd(), "Foo", "A4"), nullptr);
}

TEST(FindAttr, ComparesTheSpecExactly) {
  char value[] = "v";
  ppd_attr_t first{};
  ppd_attr_t second{"Foo", "A4", "", value};
  ppd_attr_t* attributes[] = {&first, &second};
  ppd_file_t file{};
  file.num_attrs = 2;
  file.attrs = attributes;
  EXPECT_EQ(KelmPPD::ppdFindAttr_attrName_attrSpcec_(&file, "Foo", "A4"), &second);
  EXPECT_EQ(KelmPPD::ppdFindAttr_attrName_attrSpcec_(&file, "Foo", "a4"), nullptr);
  EXPECT_EQ(KelmPPD::ppdFindAttr_attrName_attrSpcec_(&file, "Foo", nullptr), &second);
  EXPECT_EQ(KelmPPD::ppdFindAttr_attrName_attrSpcec_(&file, "Foo", ""), &second);
}

TEST_F(Lookup, FindsNoAttributeWithoutANameOrARecord) {
  EXPECT_EQ(KelmPPD::ppdFindAttr_attrName_attrSpcec_(ppd(), nullptr, nullptr), nullptr);
  EXPECT_EQ(KelmPPD::ppdFindAttr_attrName_attrSpcec_(nullptr, "Foo", nullptr), nullptr);
}

TEST_F(Lookup, FindsOptionsAndChoicesByTheirExactKeyword) {
  ppd_option_t* option = KelmPPD::ppdFindOption_optionKey_(ppd(), "PageSize");
  ASSERT_NE(option, nullptr);
  EXPECT_EQ(KelmPPD::ppdFindOption_optionKey_(ppd(), "pagesize"), nullptr);
  EXPECT_STREQ(KelmPPD::ppdFindChoice_choiceKey_(option, "A4")->code, "4");
  EXPECT_EQ(KelmPPD::ppdFindChoice_choiceKey_(option, "a4"), nullptr);
}

TEST_F(Lookup, FindsNothingInNothing) {
  ppd_file_t file{};
  EXPECT_EQ(KelmPPD::ppdFindOption_optionKey_(nullptr, "A"), nullptr);
  EXPECT_EQ(KelmPPD::ppdFindOption_optionKey_(&file, "A"), nullptr);
  EXPECT_EQ(KelmPPD::ppdFindOption_optionKey_(ppd(), nullptr), nullptr);
  EXPECT_EQ(KelmPPD::ppdFindChoice_choiceKey_(nullptr, "A"), nullptr);
  EXPECT_EQ(KelmPPD::ppdFindMarkedChoice_optionKey_(nullptr, "A"), nullptr);
}

TEST_F(Lookup, MarksAChoiceInAnyCaseThatFindingDoesNotFind) {
  EXPECT_EQ(KelmPPD::ppdMarkOption_optionKey_choiceKey_(ppd(), "pagesize", "a4"), 1);
  EXPECT_THAT(markedIn("PageSize"), ElementsAre("A4"));
  EXPECT_EQ(
      KelmPPD::ppdFindChoice_choiceKey_(KelmPPD::ppdFindOption_optionKey_(ppd(), "PageSize"), "a4"),
      nullptr);
}

TEST_F(Lookup, ComparesChoicesByTheirUpperCaseForms) {
  EXPECT_EQ(KelmPPD::ppdMarkOption_optionKey_choiceKey_(ppd(), "PageSize", "mass"), 1);
  EXPECT_THAT(markedIn("PageSize"), ElementsAre("Maß"));
}

TEST_F(Lookup, MarksOneChoiceAlone) {
  KelmPPD::ppdMarkOption_optionKey_choiceKey_(ppd(), "PageSize", "A3");
  KelmPPD::ppdMarkOption_optionKey_choiceKey_(ppd(), "PageSize", "A4");
  EXPECT_THAT(markedIn("PageSize"), ElementsAre("A4"));
}

TEST_F(Lookup, KeepsTheMarksWhenTheChoiceIsUnknownAndStillReturnsOne) {
  KelmPPD::ppdMarkOption_optionKey_choiceKey_(ppd(), "PageSize", "A4");
  EXPECT_EQ(KelmPPD::ppdMarkOption_optionKey_choiceKey_(ppd(), "PageSize", "B5"), 1);
  EXPECT_THAT(markedIn("PageSize"), ElementsAre("A4"));
}

TEST_F(Lookup, KeepsTheMarksWhenTheChoiceIsNotUtf8) {
  KelmPPD::ppdMarkOption_optionKey_choiceKey_(ppd(), "PageSize", "A4");
  EXPECT_EQ(KelmPPD::ppdMarkOption_optionKey_choiceKey_(ppd(), "PageSize", "\xFF"), 1);
  EXPECT_THAT(markedIn("PageSize"), ElementsAre("A4"));
}

TEST_F(Lookup, ReturnsOneForAnUnknownOptionAndZeroOnlyWithoutAChoice) {
  EXPECT_EQ(KelmPPD::ppdMarkOption_optionKey_choiceKey_(ppd(), "Nothing", "A4"), 1);
  EXPECT_EQ(KelmPPD::ppdMarkOption_optionKey_choiceKey_(ppd(), nullptr, "A4"), 1);
  EXPECT_EQ(KelmPPD::ppdMarkOption_optionKey_choiceKey_(nullptr, "PageSize", "A4"), 1);
  EXPECT_EQ(KelmPPD::ppdMarkOption_optionKey_choiceKey_(ppd(), "PageSize", nullptr), 0);
}

TEST_F(Lookup, MarksTheDefaultsAndNothingElse) {
  KelmPPD::ppdMarkOption_optionKey_choiceKey_(ppd(), "PageSize", "A4");
  KelmPPD::ppdMarkDefaults_(ppd());
  EXPECT_THAT(markedIn("PageSize"), ElementsAre("A3"));
}

TEST_F(Lookup, LeavesAnOptionUnmarkedWhoseDefaultNamesNoChoice) {
  KelmPPD::ppdMarkOption_optionKey_choiceKey_(ppd(), "Fold", "One");
  KelmPPD::ppdMarkDefaults_(ppd());
  EXPECT_THAT(markedIn("Fold"), IsEmpty());
}

TEST(MarkDefaults, TakesNoRecord) { KelmPPD::ppdMarkDefaults_(nullptr); }

TEST_F(Lookup, FindsTheMarkedChoiceOfAnOptionInAnyCase) {
  KelmPPD::ppdMarkDefaults_(ppd());
  EXPECT_STREQ(KelmPPD::ppdFindMarkedChoice_optionKey_(ppd(), "PAGESIZE")->choice, "A3");
  EXPECT_EQ(KelmPPD::ppdFindMarkedChoice_optionKey_(ppd(), "Fold"), nullptr);
  EXPECT_EQ(KelmPPD::ppdFindMarkedChoice_optionKey_(ppd(), "Nothing"), nullptr);
}

TEST(CupsGetPpd, NamesTheQueuesFileWithoutLookingForIt) {
  EXPECT_EQ(KelmPPD::cupsGetPPD2_("Büro"), KELM_CUPS_SERVERROOT "/ppd/Büro.ppd");
}

}  // namespace
}  // namespace kelm::ppdtext
