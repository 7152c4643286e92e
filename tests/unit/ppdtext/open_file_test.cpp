// From a PPD file to a record.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

#include "platform/fake/fake_platform.hpp"
#include "tests/unit/ppdtext/test_file.hpp"
#include "tests/unit/ppdtext/test_record.hpp"

namespace kelm::ppdtext {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

// An option of this keyword with one choice.
std::string plainOption(const std::string& keyword) {
  return "*OpenUI *" + keyword + "/" + keyword + ": PickOne\n*" + keyword +
         " One/First: \"1\"\n*CloseUI: *" + keyword + "\n";
}

class OpenFile : public testing::Test {
 protected:
  platform::FakePlatform system;
  TestDirectory directory;
};

TEST_F(OpenFile, GivesTheRecordOfAFile) {
  const std::string path = directory.write("a.ppd", plainOption("Fold"));
  const Record record(KelmPPD::ppdOpenFile_(path.c_str()));
  ASSERT_NE(record, nullptr);
  EXPECT_THAT(optionsByGroup(record), ElementsAre("Fold"));
  EXPECT_THAT(system.systemLog.messages, IsEmpty());
}

TEST_F(OpenFile, TellsTheSystemLogOfAMissingPath) {
  EXPECT_EQ(KelmPPD::ppdOpenFile_(nullptr), nullptr);
  EXPECT_THAT(system.systemLog.messages, ElementsAre("[Driver] PPD file open Error!!! - (null)"));
}

TEST_F(OpenFile, TellsTheSystemLogOfAMissingFile) {
  const std::string path = directory.path() + "/missing.ppd";
  EXPECT_EQ(KelmPPD::ppdOpenFile_(path.c_str()), nullptr);
  EXPECT_THAT(system.systemLog.messages, ElementsAre("[Driver] PPD file open Error!!! - " + path));
}

TEST_F(OpenFile, TellsTheSystemLogOfAFileThatIsNotUtf8) {
  const std::string path = directory.write("latin.ppd", plainOption("Fold") + "*% Gr\xF6\xDF\n");
  EXPECT_EQ(KelmPPD::ppdOpenFile_(path.c_str()), nullptr);
  EXPECT_THAT(system.systemLog.messages, ElementsAre("[Driver] PPD file open Error!!! - " + path));
}

TEST_F(OpenFile, TellsTheSystemLogOfADirectory) {
  EXPECT_EQ(KelmPPD::ppdOpenFile_(directory.path().c_str()), nullptr);
  EXPECT_EQ(system.systemLog.messages.size(), 1U);
}

// The file can be opened, but every read of its first page fails.
TEST_F(OpenFile, TellsTheSystemLogOfAFileWhoseReadingFails) {
  EXPECT_EQ(KelmPPD::ppdOpenFile_("/proc/self/mem"), nullptr);
  EXPECT_EQ(system.systemLog.messages.size(), 1U);
}

TEST_F(OpenFile, SaysNothingOfAFileWithLinesThatEndInCrLf) {
  const std::string text = "*OpenUI *Fold/F: PickOne\r\n*Fold One/1: \"\"\r\n*CloseUI: *Fold\r\n";
  EXPECT_EQ(KelmPPD::ppdOpenFile_(directory.write("crlf.ppd", text).c_str()), nullptr);
  EXPECT_THAT(system.systemLog.messages, IsEmpty());
}

TEST_F(OpenFile, SaysNothingOfAFileWithoutOptions) {
  EXPECT_EQ(KelmPPD::ppdOpenFile_(directory.write("empty.ppd", "").c_str()), nullptr);
  EXPECT_THAT(system.systemLog.messages, IsEmpty());
}

TEST_F(OpenFile, SaysNothingOfAnOptionWithoutChoices) {
  const std::string text = plainOption("Fold") + "*OpenUI *Bare/b: PickOne\n*CloseUI: *Bare\n";
  EXPECT_EQ(KelmPPD::ppdOpenFile_(directory.write("bare.ppd", text).c_str()), nullptr);
  EXPECT_THAT(system.systemLog.messages, IsEmpty());
}

TEST(ClosePpd, TakesNoRecord) { KelmPPD::ppdClose_(nullptr); }

TEST(Record, HoldsNoOptionAfterTheEndOfTheAdvancedGroup) {
  const Record record =
      recordOf(plainOption("Seen") + "*CloseGroup: Advanced\n" + plainOption("Unseen"));
  EXPECT_THAT(optionsByGroup(record), ElementsAre("Seen"));
}

TEST(Record, HoldsNoAttributeAfterTheEndOfTheAdvancedGroup) {
  const Record record =
      recordOf(plainOption("Seen") + "*Here: 1\n*CloseGroup: Advanced 2\n*There: 3\n");
  EXPECT_THAT(attributesIn(record), Contains("Here=1"));
  EXPECT_THAT(attributesIn(record), Contains("CloseGroup=Advanced"));
  EXPECT_THAT(attributesIn(record), Not(Contains("There=3")));
}

TEST(Record, PutsAnOptionOfNoGroupIntoGeneral) {
  const Record record = recordOf("*OpenGroup: Tray/T\n" + plainOption("In") +
                                 "*CloseGroup: Tray\n" + plainOption("Out"));
  EXPECT_THAT(optionsByGroup(record), ElementsAre("Out", "In"));
}

TEST(Record, HoldsTheFilesOwnGeneralTwiceWithTheSameOptions) {
  const Record record = recordOf("*OpenGroup: General/G\n" + plainOption("In") +
                                 "*CloseGroup: General\n" + plainOption("Out"));
  EXPECT_THAT(optionsByGroup(record), ElementsAre("In Out", "In Out"));
}

TEST(Record, GivesAnOptionOfTwoGroupsToTheFirstOfTheFile) {
  const Record record = recordOf("*OpenGroup: Outer/O\n*OpenGroup: Inner/I\n" +
                                 plainOption("Both") + "*CloseGroup: Inner\n*CloseGroup: Outer\n");
  EXPECT_THAT(optionsByGroup(record), ElementsAre("", "Both", ""));
}

TEST(Record, HoldsAnOptionThatStandsTwiceTwice) {
  EXPECT_THAT(optionsByGroup(recordOf(plainOption("Fold") + plainOption("Fold"))),
              ElementsAre("Fold Fold"));
}

TEST(Record, PassesOverAnOptionWhoseRangeIsEmpty) {
  const std::string text = "*JCLOpenUI *JCLFold/f: PickOne\n*JCLFold One/1: \"1\"\n";
  const Record record = recordOf(text);
  ASSERT_NE(record, nullptr);
  EXPECT_THAT(optionsByGroup(record), ElementsAre(""));
}

TEST(Record, LeavesNamesOfGroupsAndUnreadFieldsEmpty) {
  const Record record = recordOf("*OpenGroup: Tray/T\n" + plainOption("In") +
                                 "*OrderDependency: 5 AnySetup *In\n*CloseGroup: Tray\n");
  const ppd_group_t& group = record->groups[1];
  EXPECT_STREQ(group.name, "");
  EXPECT_STREQ(group.text, "");
  EXPECT_EQ(group.options[0].order, 0.0F);
  EXPECT_EQ(group.options[0].ui, PPD_UI_BOOLEAN);
  EXPECT_EQ(group.options[0].choices[0].marked, 0);
  EXPECT_EQ(group.options[0].choices[0].option, nullptr);
  EXPECT_STREQ(record->attrs[0]->spec, "");
  EXPECT_STREQ(record->attrs[0]->text, "");
  EXPECT_EQ(record->num_sizes, 0);
}

TEST(Option, HasTheTextOfItsOpenLineUpToTheLastColon) {
  const Record record =
      recordOf("*OpenUI *Fold/Fold: in or out: PickOne\n*Fold One/First: \"1\"\n*CloseUI: *Fold\n");
  EXPECT_STREQ(record->groups[0].options[0].text, "Fold: in or out");
}

TEST(Option, HasItsTextFromAnOpenLineWithoutTheKeywordsLastCharacter) {
  const Record record = recordOf(
      "*OpenUI *Fold/F: PickOne\n*OpenUI *Fol/Other: PickOne\n*Fold One/First: \"1\"\n"
      "*Fol One/First: \"1\"\n*CloseUI: *Fold\n*CloseUI: *Fol\n");
  EXPECT_STREQ(record->groups[0].options[0].text, "Other");
}

TEST(Option, HasTheLastDefaultOfItsSection) {
  const Record record = recordOf(
      "*DefaultFold: Zero\n*OpenUI *Fold/F: PickOne\n*DefaultFold:One\n*DefaultFold:   Two\n"
      "*Fold One/First: \"1\"\n*CloseUI: *Fold\n*DefaultFold: Three\n");
  EXPECT_STREQ(record->groups[0].options[0].defchoice, "Two");
}

TEST(Option, WithoutADefaultHasAnEmptyOne) {
  EXPECT_STREQ(recordOf(plainOption("Fold"))->groups[0].options[0].defchoice, "");
}

TEST(Choice, NeedsATranslationAndItsCodeOnItsLine) {
  const Record record = recordOf(
      "*OpenUI *Fold/F: PickOne\n*Fold Bare: \"0\"\n*Fold One/First: \"1\"\n"
      "*Fold Lines/Two lines: \"a\nb\"\n*Fold   Empty/: \"\"\n*CloseUI: *Fold\n");
  EXPECT_THAT(choicesIn(record, "Fold"), ElementsAre("One/First=1", "Empty/="));
}

TEST(Choice, HasTheLastQuotedPieceAsItsCode) {
  const Record record =
      recordOf("*OpenUI *Fold/F: PickOne\n*Fold One/First: \"a\" and \"b\"\n*CloseUI: *Fold\n");
  EXPECT_THAT(choicesIn(record, "Fold"), ElementsAre("One/First=b"));
}

TEST(Choice, IsNotMadeOfATranslationLine) {
  const Record record = recordOf(
      "*OpenUI *Fold/F: PickOne\n*Fold One/First: \"1\"\n*de.Fold One/Eins: \"\"\n"
      "*CloseUI: *Fold\n");
  EXPECT_THAT(choicesIn(record, "Fold"), ElementsAre("One/First=1"));
}

TEST(Choice, HasNoCodeWhereTheFileSaysSo) {
  const Record record =
      recordOf("*OpenUI *Fold/F: PickOne\n*Fold One/First: \"__EMPTY__\"\n*CloseUI: *Fold\n");
  EXPECT_THAT(choicesIn(record, "Fold"), ElementsAre("One/First=-"));
}

TEST(CustomChoice, OfTheWholeTextFollowsTheOnesOfTheSection) {
  const Record record = recordOf(
      "*CustomFold True: \"c\"\n*OpenUI *Fold/F: PickOne\n*Fold One/First: \"1\"\n"
      "*CloseUI: *Fold\n");
  EXPECT_THAT(choicesIn(record, "Fold"), ElementsAre("One/First=1", "Custom/Custom=c"));
}

TEST(CustomChoice, MayHaveSpacesAndSeveralQuotedPieces) {
  const Record record = recordOf(plainOption("Fold") + "*CustomFold   True: \"a\" \"b\"\n");
  EXPECT_THAT(choicesIn(record, "Fold"), ElementsAre("One/First=1", "Custom/Custom=b"));
}

TEST(CustomChoice, AloneIsEnoughForAnOption) {
  const Record record =
      recordOf("*OpenUI *Fold/F: PickOne\n*CloseUI: *Fold\n*CustomFold True: \"c\"\n");
  EXPECT_THAT(choicesIn(record, "Fold"), ElementsAre("Custom/Custom=c"));
}

TEST(CustomChoice, IsAlwaysAddedToPageRegion) {
  EXPECT_THAT(choicesIn(recordOf(plainOption("PageRegion")), "PageRegion"),
              ElementsAre("One/First=1", "Custom/Custom=-"));
}

TEST(CustomChoice, IsTheSecondOfPageRegionWithALineOfItsOwn) {
  const Record record = recordOf(plainOption("PageRegion") + "*CustomPageRegion True: \"c\"\n");
  EXPECT_THAT(choicesIn(record, "PageRegion"),
              ElementsAre("One/First=1", "Custom/Custom=c", "Custom/Custom=-"));
}

TEST(CustomChoice, IsTakenForAnotherKindWhenTheKeywordHasAGroup) {
  const Record record =
      recordOf("*OpenUI *Fo(l)d/F: PickOne\n*CloseUI: *Fold\n*CustomFold True: \"c\"\n");
  EXPECT_THAT(choicesIn(record, "Fo(l)d"), ElementsAre("l/True=c"));
}

TEST(Choice, IsOfNoKindWhenTheKeywordHasAGroup) {
  const Record record =
      recordOf("*OpenUI *Fo(l)d/F: PickOne\n*Fold One/First: \"1\"\n*CloseUI: *Fold\n");
  ASSERT_NE(record, nullptr);
  EXPECT_THAT(choicesIn(record, "Fo(l)d"), IsEmpty());
}

TEST(OptionKeyword, ThatIsNoPatternHasNoChoicesAndNoRecord) {
  EXPECT_EQ(recordOf("--\n*OpenUI *(/F: PickOne\n*( One/First: \"1\"\n*CloseUI: *(\n"), nullptr);
}

TEST(OptionKeyword, ThatRunsAwayHasNoChoicesAndNoRecord) {
  const std::string line = "*" + std::string(5000, 'a') + " One/First: \"1\"\n";
  EXPECT_EQ(recordOf("--\n*OpenUI *(a+)+b/F: PickOne\n" + line), nullptr);
}

TEST(Attribute, LosesItsQuotes) {
  EXPECT_THAT(attributesIn(recordOf("*Foo: \"bar\"\n" + plainOption("Fold"))), Contains("Foo=bar"));
}

TEST(Attribute, MayHaveNoQuotes) {
  EXPECT_THAT(attributesIn(recordOf("*Foo: bar\n" + plainOption("Fold"))), Contains("Foo=bar"));
}

TEST(Attribute, IsTheTextBetweenTheFirstAndTheLastQuote) {
  EXPECT_THAT(attributesIn(recordOf("*Foo: x \"a\" \"b\" y\n" + plainOption("Fold"))),
              Contains("Foo=a\" \"b"));
}

TEST(Attribute, KeepsAQuoteThatStandsAlone) {
  EXPECT_THAT(attributesIn(recordOf("*Foo: \"bar\nbaz\"\n" + plainOption("Fold"))),
              Contains("Foo=\"bar"));
}

TEST(Attribute, MayHaveAnyNumberOfSpacesBeforeItsValue) {
  EXPECT_THAT(attributesIn(recordOf("*Foo:bar\n*Baz:   1 2\n" + plainOption("Fold"))),
              testing::IsSupersetOf({"Foo=bar", "Baz=1 2"}));
}

TEST(Attribute, MayBeEmpty) {
  EXPECT_THAT(attributesIn(recordOf("*Foo:\n*Bar: \"\"\n" + plainOption("Fold"))),
              testing::IsSupersetOf({"Foo=", "Bar="}));
}

TEST(Attribute, StandsInTheOrderOfTheFile) {
  EXPECT_THAT(attributesIn(recordOf("*B: 1\n*A: 2\n*B: 3\n*OpenUI *F/F: PickOne\n"
                                    "*F One/First: \"1\"\n*CloseUI: *F\n")),
              ElementsAre("B=1", "A=2", "B=3", "F/F=PickOne", "CloseUI=*F"));
}

TEST(Attribute, HasANameThatMayGoBeyondALine) {
  EXPECT_THAT(attributesIn(recordOf(plainOption("Fold") + "*End\n*Foo: 1\n")),
              Contains("End\n*Foo=1"));
}

}  // namespace
}  // namespace kelm::ppdtext
