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
UpdateLines linesFor(const PrinterFacts& facts, ppd_file_t* stored = nullptr) {
  return updateLinesFor(facts, "192.0.2.7", "public", stored);
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

TEST(UpdateLines, AlwaysHoldTheSwitchesAndTheWayToThePrinter) {
  const UpdateLines update = linesFor({});
  EXPECT_THAT(update.problem, IsEmpty());
  EXPECT_THAT(valuesOf(update, ""),
              ElementsAre(Pair("AdminLoginModeEnabled", "0"), Pair("IsCustomSnmpCommunity", "0"),
                          Pair("PPDOptionsUpdated", "1"), Pair("PrinterIPAddress", "MTkyLjAuMi43"),
                          Pair("SnmpCommunityName", "cHVibGlj")));
}

TEST(UpdateLines, CallEveryCommunityButPublicCustom) {
  const UpdateLines update = updateLinesFor({}, "192.0.2.7", "", nullptr);
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
  // 300 times "a" are 400 characters of Base64; "PSFormName0_Part1" leaves 252 - 17 for a value.
  const Values parts = valuesOf(linesFor(withForms({std::string(300, 'a')})), "PSForm");
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(parts.at("PSFormName0_Part1").size(), 235U);
  EXPECT_EQ(parts.at("PSFormName0_Part2").size(), 165U);
}

TEST(UpdateLines, UseSixPartsAtMostAndRefuseALongerTextByName) {
  // Six parts of 235 characters hold 352 groups of 4, which stand for 1056 bytes.
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
    return updateLinesFor({}, "192.0.2.7", std::string(length, 'm'), nullptr).problem;
  };
  EXPECT_THAT(problemOf(174), IsEmpty());
  EXPECT_THAT(problemOf(175), HasSubstr("community \"mmmm"));
}

TEST(UpdateLines, HoldAMacAddressOfSixPartsOnly) {
  PrinterFacts facts;
  facts.macAddress = "00:1b:a9:0:4D:5e";
  EXPECT_THAT(valuesOf(linesFor(facts), "PrinterMac"),
              ElementsAre(Pair("PrinterMacAddress", "MDA6MWI6YTk6MDo0RDo1ZQ==")));
  for (const char* other : {"", "00-1B-A9-0C-4D-5E", "001BA90C4D5E", "00:1b:a9:0c:4d",
                            "00:1b:a9:0c:4d:5e:6f", "00:00:00:00:00:00"}) {
    facts.macAddress = other;
    EXPECT_THAT(valuesOf(linesFor(facts), "PrinterMac"), IsEmpty()) << other;
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
  const tests::MemoryPpd stored(
      "*PSFormName0_Part1: \"YWJj\"\n*PSFormName0_Part2: \"ZGVm\"\n*PSFormName7_Part6: \"YQ==\"\n"
      "*PSFormName8_Part1: \"\"\n*ColorProfileName0_Part1: \"YQ==\"\n");
  const UpdateLines update = linesFor(withForms({"a"}), stored);
  EXPECT_THAT(valuesOf(update, "PSForm"),
              ElementsAre(Pair("PSFormName0_Part1", "YQ=="), Pair("PSFormName0_Part2", ""),
                          Pair("PSFormName7_Part6", "")));
  EXPECT_THAT(valuesOf(update, "Color"), IsEmpty());
}

TEST(FirstNotStored, IsTheFirstLineThatThePpdDoesNotHold) {
  const tests::MemoryPpd ppd("*A: \"1\"\n*B: \"2\"\n");
  const std::vector<UpdateLine> lines{{"A", "1"}, {"Gone", ""}, {"B", "3"}, {"C", "4"}};
  const UpdateLine* missing = firstNotStored(lines, ppd);
  ASSERT_NE(missing, nullptr);
  EXPECT_EQ(missing->keyword, "B");
  EXPECT_EQ(firstNotStored({{"B", "2"}}, ppd), nullptr);
  EXPECT_EQ(firstNotStored({{"B", "2"}}, nullptr)->keyword, "B");
}

}  // namespace
}  // namespace kelm::ctl
