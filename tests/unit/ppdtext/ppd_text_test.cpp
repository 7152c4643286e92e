// What is found in a PPD's text, and what each pattern tolerates.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/ppd_text.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ppdtext/kelm_ppd.hpp"

namespace kelm::ppdtext {
namespace {

using testing::ElementsAre;

// The part of `text` that is the option's range.
std::u16string optionPiece(std::u16string_view text, std::u16string_view keyword) {
  return std::u16string(pieceOf(text, KelmPPD::optionRagne_keyword_(text, keyword)));
}

std::u16string groupPiece(std::u16string_view text, std::u16string_view keyword) {
  return std::u16string(pieceOf(text, KelmPPD::groupRange_keyword_(text, keyword)));
}

TEST(GroupKeyword, BeginsWithGeneral) {
  EXPECT_THAT(KelmPPD::groupKeyword_(u""), ElementsAre(u"General"));
}

TEST(GroupKeyword, FollowsTheFile) {
  EXPECT_THAT(KelmPPD::groupKeyword_(u"*OpenGroup: B/The B\n*OpenGroup:A/\n"),
              ElementsAre(u"General", u"B", u"A"));
}

TEST(GroupKeyword, PassesOverAGroupWithoutATranslation) {
  EXPECT_THAT(KelmPPD::groupKeyword_(u"*OpenGroup: Bare\n*OpenGroup: Full/Full\n"),
              ElementsAre(u"General", u"Full"));
}

TEST(GroupKeyword, GivesTheFilesOwnGeneralASecondTime) {
  EXPECT_THAT(KelmPPD::groupKeyword_(u"*OpenGroup: General/Basic\n"),
              ElementsAre(u"General", u"General"));
}

TEST(GroupRange, GoesFromTheOpenLineToTheClosingKeyword) {
  const std::u16string_view text = u"x\n*OpenGroup: Tray/Trays\nin\n*CloseGroup: Tray\nout\n";
  EXPECT_EQ(groupPiece(text, u"Tray"), u"*OpenGroup: Tray/Trays\nin\n*CloseGroup: Tray");
}

TEST(GroupRange, NeedsNeitherTheLastCharacterNorSpaces) {
  const std::u16string_view text = u"*OpenGroup:Tra/Trays\n*CloseGroup:Tray\n";
  EXPECT_EQ(groupPiece(text, u"Tray"), u"*OpenGroup:Tra/Trays\n*CloseGroup:Tray");
}

TEST(GroupRange, EndsAtAClosingKeywordThatOnlyBeginsAlike) {
  const std::u16string_view text = u"*OpenGroup: Tray/T\n*CloseGroup: Trays\n*CloseGroup: Tray\n";
  EXPECT_EQ(KelmPPD::groupRange_keyword_(text, u"Tray"), (TextRange{0, 36}));
}

TEST(GroupRange, TakesTheFirstOfSeveral) {
  const std::u16string_view text =
      u"*OpenGroup: A/1\n*CloseGroup: A\n*OpenGroup: A/2\n*CloseGroup: A\n";
  EXPECT_EQ(groupPiece(text, u"A"), u"*OpenGroup: A/1\n*CloseGroup: A");
}

TEST(GroupRange, CoversTheGapWhenTheGroupClosesBeforeItOpens) {
  EXPECT_EQ(groupPiece(u"*CloseGroup: A\n-\n*OpenGroup: A/a\n", u"A"),
            u"*CloseGroup: A\n-\n*OpenGroup: A/a");
}

TEST(GroupRange, IsEmptyWithoutBothEnds) {
  EXPECT_EQ(KelmPPD::groupRange_keyword_(u"\n*OpenGroup: A/a\n", u"A"), TextRange());
  EXPECT_EQ(KelmPPD::groupRange_keyword_(u"\n*CloseGroup: A\n", u"A"), TextRange());
}

TEST(GroupRange, IsEmptyForAKeywordThatIsNoPattern) {
  EXPECT_EQ(KelmPPD::groupRange_keyword_(u"\n*OpenGroup: (/a\n*CloseGroup: (\n", u"("),
            TextRange());
}

TEST(GroupRange, TakesAKeywordsPatternCharactersAsAPattern) {
  EXPECT_EQ(groupPiece(u"*OpenGroup: AxB/a\n*CloseGroup: A.B\n", u"A.B"),
            u"*OpenGroup: AxB/a\n*CloseGroup: A.B");
}

TEST(FindGroupKey, HoldsTheStartOfAnItemButNotItsEnd) {
  const GroupRanges ranges = {{u"A", {10, 5}}};
  EXPECT_EQ(KelmPPD::findGroupKey_itemRange_(ranges, {10, 100}), u"A");
  EXPECT_EQ(KelmPPD::findGroupKey_itemRange_(ranges, {14, 1}), u"A");
  EXPECT_EQ(KelmPPD::findGroupKey_itemRange_(ranges, {15, 1}), u"General");
  EXPECT_EQ(KelmPPD::findGroupKey_itemRange_(ranges, {9, 3}), u"General");
}

TEST(FindGroupKey, TriesGroupsInTheirOrder) {
  EXPECT_EQ(KelmPPD::findGroupKey_itemRange_({{u"B", {0, 9}}, {u"A", {0, 9}}}, {3, 1}), u"B");
}

TEST(FindGroupKey, HoldsNothingInAnEmptyRange) {
  EXPECT_EQ(KelmPPD::findGroupKey_itemRange_({{u"A", {}}}, {0, 1}), u"General");
}

TEST(GroupRanges, AreInTheOrderOfTheFile) {
  const std::u16string_view text =
      u"*OpenGroup: Outer/o\n*OpenGroup: Inner/i\n*CloseGroup: Inner\n*OpenGroup: General/g\n"
      u"*CloseGroup: General\n*CloseGroup: Outer\n";
  SearchBudget budget(text);
  const PPDText ppd(text, budget);
  const auto ranges = ppd.groupRanges(ppd.groupKeywords());
  ASSERT_EQ(ranges.size(), 4U);
  EXPECT_EQ(ranges[0].first, u"Outer");
  EXPECT_EQ(ranges[1].first, u"Inner");
  EXPECT_EQ(ranges[2].first, u"General");
  EXPECT_EQ(ranges[3].first, u"General");
}

TEST(OptionKeywords, FollowTheFile) {
  EXPECT_THAT(KelmPPD::optionKeywords_(u"*OpenUI *B/b: PickOne\n*OpenUI *A/: Boolean\n"),
              ElementsAre(u"B", u"A"));
}

TEST(OptionKeywords, PassOverAnOptionWithoutATranslation) {
  EXPECT_THAT(KelmPPD::optionKeywords_(u"*OpenUI *Bare: PickOne\n*OpenUI *Full/f: PickOne\n"),
              ElementsAre(u"Full"));
}

TEST(OptionKeywords, HoldThoseOfJobControlToo) {
  EXPECT_THAT(KelmPPD::optionKeywords_(u"*JCLOpenUI *JCLFold/f: PickOne\n"),
              ElementsAre(u"JCLFold"));
}

TEST(OptionKeywords, NeedExactlyOneSpace) {
  EXPECT_THAT(KelmPPD::optionKeywords_(u"*OpenUI  *A/a: PickOne\n"), ElementsAre());
}

TEST(OptionRange, GoesFromTheOpenLineThroughTheCloseLine) {
  const std::u16string_view text = u"x\n*OpenUI *A/a: PickOne\nin\n*CloseUI: *A  \nout\n";
  EXPECT_EQ(optionPiece(text, u"A"), u"*OpenUI *A/a: PickOne\nin\n*CloseUI: *A  \n");
}

TEST(OptionRange, IsInUtf16CodeUnits) {
  const std::u16string_view text = u"*% \U0001F5A8用\n*OpenUI *A/a: PickOne\n*CloseUI: *A\n";
  EXPECT_EQ(KelmPPD::optionRagne_keyword_(text, u"A"), (TextRange{7, 35}));
}

TEST(OptionRange, TakesTheLastOpenLineAndTheLastCloseLine) {
  const std::u16string_view text =
      u"*OpenUI *A/1: PickOne\n*CloseUI: *A\n*OpenUI *A/2: PickOne\n-\n*CloseUI: *A\n";
  EXPECT_EQ(optionPiece(text, u"A"), u"*OpenUI *A/2: PickOne\n-\n*CloseUI: *A\n");
}

TEST(OptionRange, NeedsNoLastCharacterInTheOpenLine) {
  const std::u16string_view text = u"\n*OpenUI *Fol/f: PickOne\n*CloseUI: *Fold\n";
  EXPECT_EQ(optionPiece(text, u"Fold"), u"*OpenUI *Fol/f: PickOne\n*CloseUI: *Fold\n");
}

TEST(OptionRange, EndsAtACloseLineWhoseKeywordOnlyEndsAlike) {
  const std::u16string_view text = u"*OpenUI *Size/s: PickOne\n-\n*CloseUI: *PageSize\n";
  EXPECT_EQ(optionPiece(text, u"Size"), text);
}

TEST(OptionRange, WithoutACloseLineEndsBeforeTheNextOption) {
  const std::u16string_view text = u"*OpenUI *A/a: PickOne\n-\n*OpenUI *B/b: PickOne\n";
  EXPECT_EQ(optionPiece(text, u"A"), u"*OpenUI *A/a: PickOne\n-\n");
}

TEST(OptionRange, WithoutACloseLineEndsBeforeTheFirstLineLikeTheNextOption) {
  const std::u16string_view text =
      u"-\n*OpenUI *B/b: PickOne\n-\n*OpenUI *A/a: PickOne\n-\n*OpenUI *B/b: PickOne\n";
  EXPECT_EQ(KelmPPD::optionRagne_keyword_(text, u"A"), (TextRange{1, 46}));
}

TEST(OptionRange, WithoutACloseLineAndANextOptionBeginsWithTheText) {
  const std::u16string_view text = u"-\n*OpenUI *A/a: PickOne\n-\n";
  EXPECT_EQ(optionPiece(text, u"A"), u"-\n*OpenUI *A/a: PickOne");
}

TEST(OptionRange, WithoutAnOpenLineBeginsWithTheText) {
  EXPECT_EQ(optionPiece(u"-\n*CloseUI: *A\n-\n", u"A"), u"-\n*CloseUI: *A\n");
}

TEST(OptionRange, WithoutBothEndsBeforeTheFirstOption) {
  EXPECT_EQ(optionPiece(u"--\n*OpenUI *B/b: PickOne\n", u"A"), u"--\n");
}

TEST(OptionRange, IsEmptyWithNothingBeforeTheFirstOption) {
  EXPECT_EQ(KelmPPD::optionRagne_keyword_(u"*OpenUI *B/b: PickOne\n", u"A"), TextRange());
}

TEST(OptionRange, IsEmptyWithNothingAtAll) {
  EXPECT_EQ(KelmPPD::optionRagne_keyword_(u"--\n", u"A"), TextRange());
}

TEST(OptionRange, DoesNotSeeACloseLineThatEndsInACarriageReturn) {
  const std::u16string_view text =
      u"*OpenUI *A/a: PickOne\r\n*CloseUI: *A\r\n-\r\n*OpenUI *B/b: PickOne\r\n";
  EXPECT_EQ(optionPiece(text, u"A"), u"*OpenUI *A/a: PickOne\r\n*CloseUI: *A\r\n-\r\n");
}

TEST(OptionRange, DoesNotSeeACloseLineThatEndsTheText) {
  EXPECT_EQ(optionPiece(u"-\n*OpenUI *A/a: PickOne\n*CloseUI: *A", u"A"),
            u"-\n*OpenUI *A/a: PickOne");
}

TEST(OptionRange, TakesAKeywordsPatternCharactersAsAPattern) {
  const std::u16string_view text = u"*OpenUI *AxB/a: PickOne\n*CloseUI: *AyB\n";
  EXPECT_EQ(optionPiece(text, u"A.B"), text);
}

TEST(OptionRange, OfAKeywordThatIsNoPatternEndsBeforeTheFirstOption) {
  EXPECT_EQ(optionPiece(u"--\n*OpenUI *(/a: PickOne\n*CloseUI: *(\n", u"("), u"--\n");
}

}  // namespace
}  // namespace kelm::ppdtext
