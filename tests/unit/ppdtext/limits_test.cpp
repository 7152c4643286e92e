// PPDs of unusual sizes and shapes: what is found, and what is refused and why.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "ppdtext/localizer.hpp"
#include "tests/unit/ppdtext/test_record.hpp"

namespace kelm::ppdtext {
namespace {

using testing::ElementsAre;

std::string option(const std::string& keyword) {
  return "*OpenUI *" + keyword + "/Text: PickOne\n*" + keyword + " On/On: \"on\"\n*CloseUI: *" +
         keyword + "\n";
}

ReadProblem problemOf(const std::string& utf8) { return readModel(toUtf16(utf8).value()).problem; }

TEST(LongPpdLine, OfAsterisksTakesNoAttributeAway) {
  const Record record = recordOf("*Before: 1\n" + option("Fold") + std::string(100'000, '*') +
                                 " \n*cupsLanguages: \"en de\"\n");
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(attributesIn(record).front(), "Before=1");
  EXPECT_EQ(attributesIn(record).back(), "cupsLanguages=en de");
}

TEST(LongPpdLine, OfSlashesAndColonsTakesNoChoiceAway) {
  std::string text = "*OpenUI *Fold/Text: PickOne\n*Fold On/On: \"on\"\n*Fold Odd";
  for (int i = 0; i < 100'000; ++i) text += "/:";
  EXPECT_THAT(choicesIn(recordOf(text + "\n*CloseUI: *Fold\n"), "Fold"), ElementsAre("On/On=on"));
}

TEST(PpdProblem, IsNoneWithAModel) {
  EXPECT_EQ(problemOf(option("Fold")).kind, ReadProblem::kNone);
}

TEST(PpdProblem, IsThatThereIsNoOption) {
  EXPECT_EQ(problemOf("*Name: 1\n").kind, ReadProblem::kNoOption);
}

TEST(PpdProblem, NamesTheOptionWithoutAChoiceAndItsLine) {
  const ReadProblem problem =
      problemOf("*PPD-Adobe: \"4.3\"\n" + option("Fold") + "*OpenUI *Bare/b: PickOne\n");
  EXPECT_EQ(problem.kind, ReadProblem::kNoChoice);
  EXPECT_EQ(problem.option, u"Bare");
  EXPECT_EQ(problem.line, 5U);
}

// Matching this keyword's pattern against the first line, which is in its range, would never end.
TEST(PpdProblem, NamesTheOptionThatTakesTooLong) {
  const ReadProblem problem = problemOf("*" + std::string(200, 'a') + " On/On: \"on\"\n" +
                                        option("Fold") + "*OpenUI *(a+)+b/Text: PickOne\n");
  EXPECT_EQ(problem.kind, ReadProblem::kTooSlow);
  EXPECT_EQ(problem.option, u"(a+)+b");
  EXPECT_EQ(problem.line, 5U);
}

TEST(PpdProblem, IsTooManyChoicesOfRepeatedOptions) {
  std::string text;
  for (int i = 0; i < 1100; ++i) text += "*OpenUI *Fold/Text: PickOne\n";
  std::string choices;
  for (int i = 0; i < 1100; ++i) choices += "*Fold On/On: \"on\"\n";
  EXPECT_EQ(problemOf(text + choices).kind, ReadProblem::kNoChoice);
  std::string custom;
  for (int i = 0; i < 1100; ++i) custom += "*CustomFold True: \"on\"\n";
  EXPECT_EQ(problemOf(text + custom).kind, ReadProblem::kTooMany);
}

TEST(PpdProblem, IsTooManyChoicesOfRepeatedGroups) {
  std::string text;
  for (int i = 0; i < 1100; ++i) text += "*OpenGroup: Paper/P\n";
  text += "*OpenUI *Fold/Text: PickOne\n";
  for (int i = 0; i < 1100; ++i) text += "*Fold On/On: \"on\"\n";
  EXPECT_EQ(problemOf(text + "*CloseUI: *Fold\n*CloseGroup: Paper\n").kind, ReadProblem::kTooMany);
}

TEST(LocalizeRecord, SaysThatKeywordsTakeTooLong) {
  const std::string text =
      "*OpenUI *Fold/Text: PickOne\n*Fold (a+)+b/On: \"on\"\n*CloseUI: *Fold\n";
  const Record record = recordOf(text);
  ASSERT_NE(record, nullptr);
  const std::string translations = text + "*de.Fold " + std::string(200, 'a') + "/An: \"\"\n";
  EXPECT_FALSE(localizeRecord(*record, toUtf16(translations).value(), u"de"));
  EXPECT_TRUE(localizeRecord(*record, toUtf16(text).value(), u"de"));
}

}  // namespace
}  // namespace kelm::ppdtext
