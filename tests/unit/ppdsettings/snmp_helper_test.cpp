// The readers of the stored facts, with PPDs in memory.
// SPDX-License-Identifier: Apache-2.0
#include "ppdsettings/snmp_helper.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "job/ppd_calls.hpp"
#include "tests/support/memory_ppd.hpp"

namespace kelm::ppdsettings {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::MemoryPpd;
using Helper = KelmSNMPHelper;

std::string repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

std::string attribute(const std::string& keyword, const std::string& value) {
  return "*" + keyword + ": \"" + value + "\"\n";
}

// An attribute whose value has several lines, as PPDs hold long values. Each line feed belongs to
// the value.
std::string longAttribute(const std::string& keyword, const std::string& line, int lines) {
  return "*" + keyword + ": \"" + repeated(line + "\n", lines) + "\"\n*End\n";
}

TEST(PlainValue, IsTakenAsItStands) {
  const MemoryPpd ppd("*IsWakeOnLan: 1\n*Quoted: \"a b\"\n");
  EXPECT_EQ(Helper::getPPDAttributeValueForName_ppdFile_("IsWakeOnLan", ppd), "1");
  EXPECT_EQ(Helper::getPPDAttributeValueForName_ppdFile_("Quoted", ppd), "a b");
}

TEST(PlainValue, IsEmptyWithoutKeywordValueOrText) {
  const MemoryPpd ppd(attribute("Empty", "") + attribute("NoValue", "x"));
  ppd_attr_t* noValue = job::r_ppdFindAttr(ppd, "NoValue", nullptr);
  ASSERT_NE(noValue, nullptr);
  char* const value = std::exchange(noValue->value, nullptr);
  EXPECT_EQ(Helper::getPPDAttributeValueForName_ppdFile_("Missing", ppd), "");
  EXPECT_EQ(Helper::getPPDAttributeValueForName_ppdFile_("Empty", ppd), "");
  EXPECT_EQ(Helper::getPPDAttributeValueForName_ppdFile_("NoValue", ppd), "");
  EXPECT_EQ(Helper::getPPDAttributeValueForName_ppdFile_("Empty", nullptr), "");
  noValue->value = value;
}

TEST(PlainValue, IsNullWhenItIsNotUtf8) {
  const MemoryPpd ppd(attribute("Bad", "a\xFF"));
  EXPECT_EQ(Helper::getPPDAttributeValueForName_ppdFile_("Bad", ppd), std::nullopt);
}

TEST(PlainValue, IsThatOfTheFirstAttributeOfTheKeyword) {
  const MemoryPpd ppd(attribute("Twice", "first") + attribute("Twice", "second"));
  EXPECT_EQ(Helper::getPPDAttributeValueForName_ppdFile_("Twice", ppd), "first");
}

TEST(DecodedValue, IsTheTextAfterTheBase64) {
  const MemoryPpd ppd(
      attribute("Name", "R3LDvMOfZSDmjqXntpo="));  // 47 72 C3BC C39F 65 20 E68EA5 E7B69A
  EXPECT_EQ(Helper::getDecodedPPDAttributeValueForName_ppdFile_("Name", ppd), "Grüße 接続");
}

TEST(DecodedValue, IsNullWithoutKeywordOrValueOrWhenItIsNotUtf8) {
  const MemoryPpd ppd(attribute("NoValue", "QQ==") + attribute("Bad", "Qf8="));
  ppd_attr_t* noValue = job::r_ppdFindAttr(ppd, "NoValue", nullptr);
  ASSERT_NE(noValue, nullptr);
  char* const value = std::exchange(noValue->value, nullptr);
  EXPECT_EQ(Helper::getDecodedPPDAttributeValueForName_ppdFile_("Missing", ppd), std::nullopt);
  EXPECT_EQ(Helper::getDecodedPPDAttributeValueForName_ppdFile_("NoValue", ppd), std::nullopt);
  EXPECT_EQ(Helper::getDecodedPPDAttributeValueForName_ppdFile_("Bad", ppd), std::nullopt);
  EXPECT_EQ(Helper::getDecodedPPDAttributeValueForName_ppdFile_("Bad", nullptr), std::nullopt);
  noValue->value = value;
}

TEST(DecodedValue, IsEmptyForAnEmptyValue) {
  const MemoryPpd ppd(attribute("Empty", ""));
  EXPECT_EQ(Helper::getDecodedPPDAttributeValueForName_ppdFile_("Empty", ppd), "");
}

TEST(DecodedValue, SkipsWhatIsNotBase64) {
  const MemoryPpd ppd(attribute("Odd", "Q-U*J D!"));
  EXPECT_EQ(Helper::getDecodedPPDAttributeValueForName_ppdFile_("Odd", ppd), "ABC");
}

TEST(DecodedValue, EndsAtTheLimitOfItsBuffer) {
  const MemoryPpd ppd(longAttribute("Long", repeated("QUJD", 20), 70));  // 4200 bytes decoded
  EXPECT_EQ(Helper::getDecodedPPDAttributeValueForName_ppdFile_("Long", ppd),
            repeated("ABC", 1365));
}

TEST(DecodedValue, EndsAtAZeroByte) {
  const MemoryPpd ppd(attribute("Zero", "QQBC"));
  EXPECT_EQ(Helper::getDecodedPPDAttributeValueForName_ppdFile_("Zero", ppd), "A");
}

TEST(MultiPartValue, IsJoinedInTheOrderOfThePartsAndDecodedOnce) {
  // "Fach 1" is RmFjaCAx: no part is a whole Base64 text.
  const MemoryPpd ppd(attribute("Box_Part6", "x") + attribute("Box_Part3", "A") +
                      attribute("Box_Part1", "RmF") + attribute("Box_Part2", "jaC"));
  EXPECT_EQ(Helper::getDecodedPPDAttributeMaltiPartValueForName_ppdFile_("Box", ppd), "Fach 1");
}

TEST(MultiPartValue, GoesOnAfterAMissingPart) {
  const MemoryPpd ppd(attribute("SharedBoxName0_Part1", "QUJD") +
                      attribute("SharedBoxName0_Part3", "REVG"));
  EXPECT_EQ(Helper::getDecodedPPDAttributeMaltiPartValueForName_ppdFile_("SharedBoxName0", ppd),
            "ABCDEF");
}

TEST(MultiPartValue, HasSixPartsAtMost) {
  const MemoryPpd ppd(attribute("Box_Part0", "QUJD") + attribute("Box_Part7", "QUJD") +
                      attribute("Box", "QUJD"));
  EXPECT_EQ(Helper::getDecodedPPDAttributeMaltiPartValueForName_ppdFile_("Box", ppd), "");
}

TEST(MultiPartValue, LeavesOutAPartThatDoesNotFitAndTakesAShorterLaterOne) {
  // 49 lines of 80 characters and a line feed: 3969 bytes; 127 are free.
  const MemoryPpd ppd(longAttribute("Box_Part1", repeated("QUJD", 20), 49) +
                      attribute("Box_Part2", repeated("Q", 126)) +
                      attribute("Box_Part3", repeated("REVG", 31)));
  EXPECT_EQ(Helper::getDecodedPPDAttributeMaltiPartValueForName_ppdFile_("Box", ppd),
            repeated("ABC", 980) + repeated("DEF", 31));
}

TEST(MultiPartValue, TakesAPartThatJustFits) {
  const MemoryPpd ppd(longAttribute("Box_Part1", repeated("QUJD", 20), 49) +
                      attribute("Box_Part2", "-" + repeated("REVG", 31)));  // 125 bytes
  EXPECT_EQ(Helper::getDecodedPPDAttributeMaltiPartValueForName_ppdFile_("Box", ppd),
            repeated("ABC", 980) + repeated("DEF", 31));
}

TEST(MultiPartValue, IsEmptyWhenItIsNotUtf8OrNothing) {
  const MemoryPpd ppd(attribute("Bad_Part1", "/w=="));
  EXPECT_EQ(Helper::getDecodedPPDAttributeMaltiPartValueForName_ppdFile_("Bad", ppd), "");
  EXPECT_EQ(Helper::getDecodedPPDAttributeMaltiPartValueForName_ppdFile_("Missing", ppd), "");
  EXPECT_EQ(Helper::getDecodedPPDAttributeMaltiPartValueForName_ppdFile_("Missing", nullptr), "");
}

TEST(MultiPartValue, OfAVeryLongKeywordIsEmpty) {
  const MemoryPpd ppd(attribute("Box_Part1", "QUJD"));
  const std::string keyword(5000, 'K');
  EXPECT_EQ(Helper::getDecodedPPDAttributeMaltiPartValueForName_ppdFile_(keyword.c_str(), ppd), "");
}

struct SwitchCase {
  const char* keyword;
  bool (*read)(ppd_file_t*);
  bool one, zero, otherText, empty, missing, notUtf8;
};

void PrintTo(const SwitchCase& row, std::ostream* out) { *out << row.keyword; }

class Switch : public testing::TestWithParam<SwitchCase> {
 protected:
  bool read(const std::string& attributes) const {
    const MemoryPpd ppd(attributes);
    return GetParam().read(ppd);
  }
  bool readValue(const std::string& value) const {
    return read(attribute(GetParam().keyword, value));
  }
};

TEST_P(Switch, MeansWhatItsTextSays) {
  EXPECT_EQ(readValue("1"), GetParam().one);
  EXPECT_EQ(readValue("0"), GetParam().zero);
  for (const char* text : {"2", "01", "true", "10"}) {
    EXPECT_EQ(readValue(text), GetParam().otherText) << text;
  }
}

TEST_P(Switch, HasAMeaningWithoutText) {
  EXPECT_EQ(readValue(""), GetParam().empty);
  EXPECT_EQ(read("*Other: \"1\"\n"), GetParam().missing);
  EXPECT_EQ(GetParam().read(nullptr), GetParam().missing);
}

TEST_P(Switch, HasAMeaningWhenItIsNotUtf8) { EXPECT_EQ(readValue("\xFF"), GetParam().notUtf8); }

INSTANTIATE_TEST_SUITE_P(
    All, Switch,
    testing::Values(SwitchCase{"IsCustomSnmpCommunity", Helper::isCustomSnmpCommunity_, true, false,
                               false, false, false, false},
                    SwitchCase{"IsWakeOnLan", Helper::isWakeOnLan_, true, false, false, true, true,
                               false},
                    SwitchCase{"IsOverTheRouter", Helper::isOverTheRouter_, true, false, false,
                               false, false, false},
                    SwitchCase{"PPDOptionsUpdated", Helper::isPPDOptionsUpdated_, true, false,
                               false, false, false, false},
                    SwitchCase{"UsePersonalFolder", Helper::isPersonalFolderSelected_, true, false,
                               false, false, false, true},
                    SwitchCase{"AdminLoginModeEnabled", Helper::isAdminLoginModeEnabled_, true,
                               false, true, true, true, false}),
    [](const auto& row) { return std::string(row.param.keyword); });

TEST(WakeOnLan, IsOffWhenStoredAsZeroAndOnWhenNotStoredAtAll) {
  const MemoryPpd off(attribute("IsWakeOnLan", "0"));
  const MemoryPpd notStored;
  EXPECT_FALSE(Helper::isWakeOnLan_(off));
  EXPECT_TRUE(Helper::isWakeOnLan_(notStored));
}

TEST(AdminLoginMode, IsOnWhenStoredEmpty) {
  const MemoryPpd ppd(attribute("AdminLoginModeEnabled", ""));
  EXPECT_TRUE(Helper::isAdminLoginModeEnabled_(ppd));
}

TEST(Community, IsPublicUnlessStored) {
  const MemoryPpd stored(attribute("SnmpCommunityName", "c2VjcmV0"));
  const MemoryPpd notStored;
  EXPECT_EQ(Helper::snmpCommunityName_(stored), "secret");
  EXPECT_EQ(Helper::snmpCommunityName_(notStored), "public");
  EXPECT_EQ(Helper::snmpCommunityName_(nullptr), "public");
}

TEST(Community, StoredEmptyIsEmptyAndNotPublic) {
  const MemoryPpd ppd(attribute("SnmpCommunityName", ""));
  EXPECT_EQ(Helper::snmpCommunityName_(ppd), "");
}

TEST(Community, ThatIsNotUtf8IsPublic) {
  const MemoryPpd ppd(attribute("SnmpCommunityName", "/w=="));
  EXPECT_EQ(Helper::snmpCommunityName_(ppd), "public");
}

TEST(Addresses, AreDecodedAndEmptyWhenMissing) {
  const MemoryPpd ppd(attribute("PrinterMacAddress", "MDA6MTE6MjI6MzM6NDQ6NTU=") +
                      attribute("PrinterIPAddress", "MTkyLjAuMi43"));
  EXPECT_EQ(Helper::getPrinterMacAddress_(ppd), "00:11:22:33:44:55");
  EXPECT_EQ(Helper::getPrinterIPAddress_(ppd), "192.0.2.7");
  EXPECT_EQ(Helper::getPrinterMacAddress_(nullptr), "");
  EXPECT_EQ(Helper::getPrinterIPAddress_(nullptr), "");
}

struct ListCase {
  const char* keyword;
  std::vector<std::string> (*read)(ppd_file_t*);
  int lastIndex;
};

void PrintTo(const ListCase& row, std::ostream* out) { *out << row.keyword; }

class List : public testing::TestWithParam<ListCase> {
 protected:
  std::string entry(int index, const std::string& value, int part = 1) const {
    return attribute(GetParam().keyword + std::to_string(index) + "_Part" + std::to_string(part),
                     value);
  }
  std::vector<std::string> read(const std::string& attributes) const {
    const MemoryPpd ppd(attributes);
    return GetParam().read(ppd);
  }
};

TEST_P(List, HasNoGapsWhereIndexesAreMissing) {
  EXPECT_THAT(read(entry(5, "Qg==") + entry(0, "QQ==")), ElementsAre("A", "B"));
}

TEST_P(List, TakesEntriesUpToItsLastIndex) {
  const int last = GetParam().lastIndex;
  EXPECT_THAT(read(entry(last, "QQ==") + entry(last + 1, "Qg==")), ElementsAre("A"));
}

TEST_P(List, JoinsTheSixPartsOfAnEntry) {
  EXPECT_THAT(read(entry(2, "QU") + entry(2, "JD", 6) + entry(2, "QU", 7)), ElementsAre("ABC"));
}

TEST_P(List, LeavesOutEntriesThatAreEmptyOrNotUtf8) {
  EXPECT_THAT(read(entry(0, "") + entry(1, "/w==") + entry(2, "QQ==")), ElementsAre("A"));
}

TEST_P(List, IsEmptyWithoutPpd) { EXPECT_THAT(GetParam().read(nullptr), IsEmpty()); }

INSTANTIATE_TEST_SUITE_P(
    All, List,
    testing::Values(ListCase{"SharedBoxName", Helper::getSharedBoxDetailsArray_, 99},
                    ListCase{"SelSharedBoxName", Helper::getSelectedSharedBoxDetailsArray_, 99},
                    ListCase{"BarcodeAreaDefName", Helper::getBarcodeAreaDefinitionDetailsArray_,
                             99},
                    ListCase{"ColorProfileName", Helper::getColorProfileDetailsArray_, 29},
                    ListCase{"PSFormName", Helper::getFormDetailsArray_, 99}),
    [](const auto& row) { return std::string(row.param.keyword); });

TEST(SharedBoxes, HoldsEntriesZeroAndFiveInThatOrder) {
  const MemoryPpd ppd(attribute("SharedBoxName5_Part1", "Qg==") +
                      attribute("SharedBoxName0_Part1", "QQ=="));
  EXPECT_THAT(Helper::getSharedBoxDetailsArray_(ppd), ElementsAre("A", "B"));
}

TEST(ColorProfiles, NumberThirtyIsNeverRead) {
  const MemoryPpd ppd(attribute("ColorProfileName30_Part1", "QQ=="));
  EXPECT_THAT(Helper::getColorProfileDetailsArray_(ppd), IsEmpty());
}

TEST(SelectedIndexes, AreTheLeadingDigitsOfTheEntriesThatAreThere) {
  const MemoryPpd ppd(
      attribute("SelSharedBoxIndex0", "7") + attribute("SelSharedBoxIndex3", "12x") +
      attribute("SelSharedBoxIndex4", "x9") + attribute("SelSharedBoxIndex5", "") +
      attribute("SelSharedBoxIndex99", "42") + attribute("SelSharedBoxIndex100", "1"));
  EXPECT_THAT(Helper::getSelectedSharedBoxIndexArray_(ppd), ElementsAre(7, 12, 0, 42));
}

TEST(SelectedIndexes, StopAtTheLargestInteger) {
  const MemoryPpd ppd(attribute("SelSharedBoxIndex0", "2147483647") +
                      attribute("SelSharedBoxIndex1", "2147483648") +
                      attribute("SelSharedBoxIndex2", "99999999999999999999"));
  EXPECT_THAT(Helper::getSelectedSharedBoxIndexArray_(ppd),
              ElementsAre(2147483647, 2147483647, 2147483647));
}

TEST(SelectedIndexes, AreNoneWithoutPpd) {
  EXPECT_THAT(Helper::getSelectedSharedBoxIndexArray_(nullptr), IsEmpty());
}

}  // namespace
}  // namespace kelm::ppdsettings
