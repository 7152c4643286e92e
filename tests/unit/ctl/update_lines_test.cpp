// A printer's answers as keywords and values of the PPD.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/update_lines.hpp"

#include <gmock/gmock.h>

#include <map>

#include "tests/support/memory_ppd.hpp"

namespace kelm::ctl {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;

using Names = std::vector<std::string>;
using Values = std::map<std::string, std::string>;

// The printer at 192.0.2.7 with the community "public", as a job would store it.
UpdateLines linesFor(const PrinterFacts& facts, const StoredLines& stored = {}) {
  return updateLinesFor(facts, "192.0.2.7", "public", stored);
}

// The answers of a printer that answers every question but has no entry in any list.
PrinterFacts completeFacts() {
  PrinterFacts facts;
  facts.macAddress = "00:1b:a9:00:00:01";
  facts.adminLoginModeEnabled = false;
  facts.sharedBoxes.emplace();
  facts.forms.emplace();
  facts.barcodeAreas.emplace();
  facts.colorProfiles.emplace();
  return facts;
}

PrinterFacts withForms(Names names) {
  PrinterFacts facts;
  facts.forms = std::move(names);
  return facts;
}

Values valuesOf(const UpdateLines& update, const std::string& beginning) {
  Values values;
  for (const UpdateLine& line : update.lines) {
    if (line.keyword.starts_with(beginning)) values[line.keyword] = line.value;
  }
  return values;
}

TEST(UpdateLines, AlwaysHoldTheWayToThePrinter) {
  const UpdateLines update = linesFor({});
  EXPECT_THAT(update.problem, IsEmpty());
  EXPECT_THAT(valuesOf(update, ""), ElementsAre(Pair("IsCustomSnmpCommunity", "0"),
                                                Pair("PrinterIPAddress", "MTkyLjAuMi43"),
                                                Pair("SnmpCommunityName", "cHVibGlj")));
}

TEST(UpdateLines, HoldTheLogInModeOnlyWhenThePrinterGaveIt) {
  PrinterFacts facts;
  facts.adminLoginModeEnabled = true;
  EXPECT_EQ(valuesOf(linesFor(facts), "Admin")["AdminLoginModeEnabled"], "1");
  facts.adminLoginModeEnabled = false;
  EXPECT_EQ(valuesOf(linesFor(facts), "Admin")["AdminLoginModeEnabled"], "0");
}

TEST(UpdateLines, MarkACompleteUpdateAlone) {
  PrinterFacts facts = completeFacts();
  EXPECT_THAT(missingFacts(facts), IsEmpty());
  EXPECT_EQ(valuesOf(linesFor(facts), "PPD")["PPDOptionsUpdated"], "1");
  facts.leftOut = {"shared box 17"};
  EXPECT_THAT(missingFacts(facts), ElementsAre("readable shared box 17"));
  EXPECT_THAT(valuesOf(linesFor(facts), "PPD"), IsEmpty());
  facts = completeFacts();
  facts.adminLoginModeEnabled.reset();
  EXPECT_THAT(missingFacts(facts), ElementsAre("administrator log-in mode"));
  EXPECT_THAT(valuesOf(linesFor(facts), "PPD"), IsEmpty());
}

TEST(UpdateLines, LeaveABoxThatCannotBeReadAsItIsStored) {
  PrinterFacts facts;
  facts.sharedBoxes = {{"1", "a"}, {}, {"0", ""}};
  EXPECT_THAT(valuesOf(linesFor(facts, {{"SharedBoxName0_Part1", "Yg=="},
                                        {"SharedBoxName1_Part1", "Yg=="},
                                        {"SharedBoxName2_Part1", "Yg=="}}),
                       "SharedBox"),
              ElementsAre(Pair("SharedBoxName0_Part1", "YQ=="), Pair("SharedBoxName2_Part1", "")));
}

TEST(UpdateLines, CallEveryCommunityButPublicCustom) {
  const UpdateLines update = updateLinesFor({}, "192.0.2.7", "", {});
  EXPECT_EQ(valuesOf(update, "IsCustom")["IsCustomSnmpCommunity"], "1");
  EXPECT_EQ(valuesOf(update, "SnmpCommunity")["SnmpCommunityName"], "");
}

TEST(UpdateLines, KeepSharedBoxesInUseAtTheirOwnIndex) {
  PrinterFacts facts;
  facts.sharedBoxes = {{"0", "a"}, {"1", "b"}, {"2", "c"}, {"1", ""}, {"1", "a"}};
  EXPECT_THAT(
      valuesOf(linesFor(facts), "SharedBox"),
      ElementsAre(Pair("SharedBoxName1_Part1", "Yg=="), Pair("SharedBoxName4_Part1", "YQ==")));
}

TEST(UpdateLines, KeepTheOtherListsFromIndexZeroOn) {
  PrinterFacts facts = withForms({"b", "a", "c"});
  facts.barcodeAreas = Names{"a"};
  facts.colorProfiles = Names{"b"};
  const UpdateLines update = linesFor(facts);
  EXPECT_THAT(valuesOf(update, "PSForm"),
              ElementsAre(Pair("PSFormName0_Part1", "Yg=="), Pair("PSFormName1_Part1", "YQ=="),
                          Pair("PSFormName2_Part1", "Yw==")));
  EXPECT_THAT(valuesOf(update, "Barcode"), ElementsAre(Pair("BarcodeAreaDefName0_Part1", "YQ==")));
  EXPECT_THAT(valuesOf(update, "Color"), ElementsAre(Pair("ColorProfileName0_Part1", "Yg==")));
}

TEST(UpdateLines, CutALongTextIntoPartsThatAPpdLineHolds) {
  // 300 bytes are 400 characters of Base64; "PSFormName0_Part1" leaves 252 - 17 for a value.
  const Values parts = valuesOf(linesFor(withForms({std::string(300, 'a')})), "PSForm");
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(parts.at("PSFormName0_Part1").size(), 235U);
  EXPECT_EQ(parts.at("PSFormName0_Part2").size(), 165U);
}

TEST(UpdateLines, UseSixPartsAtMostAndRefuseALongerTextByName) {
  // Six parts of 235 characters hold 352 groups of 4, which encode 1056 bytes.
  const std::string longest(1056, 'a');
  EXPECT_EQ(valuesOf(linesFor(withForms({longest})), "PSForm").size(), 6U);
  const UpdateLines update = linesFor(withForms(Names{"x", longest + "aa"}));
  EXPECT_THAT(update.lines, IsEmpty());
  EXPECT_THAT(update.problem, HasSubstr("form 2 \"aaaa"));
  EXPECT_THAT(update.problem, HasSubstr("1058 bytes"));
}

TEST(UpdateLines, RefuseASingleTextThatDoesNotFitOneLine) {
  // "SnmpCommunityName" leaves 235 characters: 58 groups of 4 for 174 bytes.
  const auto problemOf = [](std::size_t length) {
    return updateLinesFor({}, "192.0.2.7", std::string(length, 'm'), {}).problem;
  };
  EXPECT_THAT(problemOf(174), IsEmpty());
  EXPECT_THAT(problemOf(175), HasSubstr("community \"mmmm"));
}

TEST(UpdateLines, HoldAMacAddressOfSixPartsOnly) {
  PrinterFacts facts;
  facts.macAddress = "00:1b:a9:0:4D:5e";
  EXPECT_THAT(valuesOf(linesFor(facts), "PrinterMac"),
              ElementsAre(Pair("PrinterMacAddress", "MDA6MWI6YTk6MDo0RDo1ZQ==")));
  for (const char* other : {"", "001BA90C4D5", "001BA90C4D5G", "00:1b:a9:0c:4d", "00-1b-a9-0c-4d",
                            "00:1b:a9:0c:4d:5e:6f", "00:00:00:00:00:00", "000000000000"}) {
    facts.macAddress = other;
    EXPECT_THAT(valuesOf(linesFor(facts), "PrinterMac"), IsEmpty()) << other;
  }
}

TEST(UpdateLines, WriteAMacAddressAsAJobUnderstandsIt) {
  PrinterFacts facts;
  for (const char* form : {"00-1B-A9-0C-4D-5E", "001BA90C4D5E", "00:1B:A9:0C:4D:5E"}) {
    facts.macAddress = form;
    EXPECT_EQ(storableMacAddress(facts), "00:1B:A9:0C:4D:5E") << form;
  }
}

TEST(UpdateLines, RefuseMoreThanOneJobCarries) {
  PrinterFacts facts = withForms(Names(100, std::string(600, 'a')));
  EXPECT_THAT(linesFor(facts).problem, IsEmpty());
  facts.barcodeAreas = facts.forms;
  const UpdateLines update = linesFor(facts);
  EXPECT_THAT(update.lines, IsEmpty());
  EXPECT_THAT(update.problem, HasSubstr("shorten names"));
}

TEST(UpdateLines, EmptyWhatIsStoredAndGone) {
  const StoredLines stored{{"PSFormName0_Part1", "YWJj"},
                           {"PSFormName0_Part2", "ZGVm"},
                           {"PSFormName7_Part6", "YQ=="},
                           {"PSFormName8_Part1", ""},
                           {"ColorProfileName0_Part1", "YQ=="}};
  const UpdateLines update = linesFor(withForms({"a"}), stored);
  EXPECT_THAT(valuesOf(update, "PSForm"),
              ElementsAre(Pair("PSFormName0_Part1", "YQ=="), Pair("PSFormName0_Part2", ""),
                          Pair("PSFormName7_Part6", "")));
  EXPECT_THAT(valuesOf(update, "Color"), IsEmpty());
}

TEST(FirstNotStored, IsTheFirstLineThatIsNotStored) {
  const StoredLines stored{{"A", "1"}, {"B", "2"}};
  const std::vector<UpdateLine> lines{{"A", "1"}, {"Gone", ""}, {"B", "3"}, {"C", "4"}};
  const UpdateLine* missing = firstNotStored(lines, stored);
  ASSERT_NE(missing, nullptr);
  EXPECT_EQ(missing->keyword, "B");
  EXPECT_EQ(firstNotStored({{"B", "2"}}, stored), nullptr);
  EXPECT_EQ(firstNotStored({{"B", "2"}}, {})->keyword, "B");
}

TEST(StoredLines, AreTheStoredFactsOfAPpd) {
  const tests::MemoryPpd ppd(
      "*IsWakeOnLan: 0\n*SharedBoxName12_Part3: YQ==\n*SelSharedBoxIndex4: 7\n"
      "*SharedBoxName: no\n*SharedBoxNames1_Part1: no\n*SelSharedBoxIndex4_Part1: no\n"
      "*IsWakeOnLan2: no\n*NickName: \"no\"\n");
  EXPECT_THAT(storedLinesOf(ppd),
              ElementsAre(Pair("IsWakeOnLan", "0"), Pair("SelSharedBoxIndex4", "7"),
                          Pair("SharedBoxName12_Part3", "YQ==")));
  EXPECT_THAT(storedLinesOf(nullptr), IsEmpty());
}

}  // namespace
}  // namespace kelm::ctl
