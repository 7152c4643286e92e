// The printer queries against real agents. Each suite needs the printer that
// printer_queries_test.sh starts for it; the variable PRINTER is its address.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include <chrono>
#include <cstdlib>
#include <map>
#include <string>
#include <thread>

#include "snmp/presence.hpp"
#include "snmp/qv_snmp_helper.hpp"

namespace kelm::snmp {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr char kCommunity[] = "public";

const char* printer() {
  const char* address = std::getenv("PRINTER");
  return address != nullptr ? address : "no printer:";
}

auto boxStates(std::int64_t count) {
  return QVSNMPHelper::getValidatedSharedBoxStateArrayForIPAddress_community_totalCount_(
      printer(), kCommunity, count);
}

auto boxNames(std::int64_t count) {
  return QVSNMPHelper::getValidatedSharedBoxNameArrayForIPAddress_community_totalCount_(
      printer(), kCommunity, count);
}

auto forms() {
  return QVSNMPHelper::getValidatedFormNameArrayForIPAddress_community_(printer(), kCommunity);
}

auto barcodeAreas() {
  return QVSNMPHelper::getValidatedBarcodeAreaNameArrayForIPAddress_community_(printer(),
                                                                               kCommunity);
}

auto colorProfiles() {
  return QVSNMPHelper::getValidatedColorProfileForIPAddress_community_(printer(), kCommunity);
}

int sharedBoxCount() {
  return QVSNMPHelper::snmpGetSharedBoxEntryForIPAddress_community_(printer(), kCommunity);
}

bool adminLogin() {
  return QVSNMPHelper::getAdminLoginModeEnabled_community_(printer(), kCommunity);
}

std::optional<std::string> macAddress() {
  return QVSNMPHelper::getMacAddress_community_(printer(), kCommunity);
}

// Expects the status and the mode of one query for the sleep mode.
void expectSleepMode(int status, std::int32_t mode) {
  std::int32_t found = 99;
  EXPECT_EQ(QVSNMPHelper::getSleepMode_community_sleepMode_(printer(), kCommunity, &found), status);
  EXPECT_EQ(found, mode);
}

template <class Question>
double secondsOf(Question question) {
  const auto begin = std::chrono::steady_clock::now();
  question();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

// --- many_boxes.mib ---

TEST(ManyBoxes, AreAHundred) { EXPECT_EQ(sharedBoxCount(), 100); }

TEST(ManyBoxes, AreGivenInUseOrNot) {
  const auto states = boxStates(100);
  const auto names = boxNames(100);
  ASSERT_TRUE(states && names);
  ASSERT_THAT(*states, SizeIs(100));
  ASSERT_THAT(*names, SizeIs(100));
  EXPECT_EQ((*states)[0], "1");
  EXPECT_EQ((*states)[1], "0");
  EXPECT_EQ((*names)[1], "Box 2");
  EXPECT_EQ((*names)[2], "Lagerhaus Süd");
  EXPECT_EQ((*names)[99], "Box 100");
}

TEST(ManyBoxes, CanBeAskedForInPart) {
  EXPECT_THAT(boxStates(30), testing::Optional(SizeIs(30)));
  EXPECT_THAT(boxNames(1), testing::Optional(ElementsAre("Box 1")));
}

TEST(ManyBoxes, AreCopiesThatLaterQueriesLeaveAlone) {
  const auto names = boxNames(2);
  EXPECT_FALSE(boxNames(0));
  EXPECT_THAT(names, testing::Optional(ElementsAre("Box 1", "Box 2")));
  EXPECT_THAT(QVSNMPHelper::sharedBoxNameArray, IsEmpty());
}

TEST(FullLists, LeaveOutAFormWhoseStateIsZeroOrTwoAndStillFetchItsName) {
  const auto names = forms();
  ASSERT_TRUE(names);
  EXPECT_THAT(*names, SizeIs(98));
  EXPECT_THAT(*names, Not(Contains("Form 2")));
  EXPECT_THAT(*names, Not(Contains("Form 3")));
  EXPECT_EQ(names->front(), "Form 1");
  EXPECT_EQ(names->back(), "Form 100");
  ASSERT_THAT(QVSNMPHelper::formNameArray, SizeIs(100));
  EXPECT_EQ(QVSNMPHelper::formNameArray[1], "Form 2");
  EXPECT_EQ(QVSNMPHelper::formStateArray[2], "2");
}

TEST(FullLists, HoldAHundredBarcodeAreas) {
  const auto names = barcodeAreas();
  ASSERT_TRUE(names);
  ASSERT_THAT(*names, SizeIs(100));
  EXPECT_EQ(names->back(), "帳票");
}

TEST(FullLists, HoldThirtyColourProfiles) {
  const auto names = colorProfiles();
  ASSERT_TRUE(names);
  ASSERT_THAT(*names, SizeIs(30));
  EXPECT_EQ(names->back(), "Profile 30");
}

TEST(SingleFacts, AreWhatThePrinterSays) {
  EXPECT_TRUE(adminLogin());
  EXPECT_EQ(macAddress(), "00:1B:A9:0C:4D:5E");
  expectSleepMode(0, 2);
}

TEST(TestValue, IsEmptyWhateverTheAgentSays) { EXPECT_EQ(QVSNMPHelper::snmpGetTestValue(), ""); }

// --- few_boxes.mib ---

TEST(FewBoxes, AreThirty) {
  EXPECT_EQ(sharedBoxCount(), 30);
  EXPECT_THAT(boxStates(30), testing::Optional(SizeIs(30)));
}

TEST(FewBoxes, AreNoneWhenAHundredAreAskedFor) { EXPECT_EQ(boxStates(100), std::nullopt); }

TEST(FewBoxes, KeepTheirPlaceWithAnEmptyName) {
  const auto names = boxNames(30);
  ASSERT_TRUE(names);
  ASSERT_THAT(*names, SizeIs(30));
  EXPECT_EQ((*names)[1], "");
  EXPECT_EQ((*names)[16], "Müller \"intern\"");
}

TEST(SparseLists, HoldTheEntriesInUseInTheirOrder) {
  EXPECT_THAT(forms(), testing::Optional(ElementsAre("Briefkopf", "請求書")));
  EXPECT_THAT(barcodeAreas(), testing::Optional(ElementsAre("Kopf links")));
  EXPECT_THAT(colorProfiles(), testing::Optional(IsEmpty()));
}

TEST(SparseLists, ComeWithAnAdministratorWhoNeedNotLogIn) {
  EXPECT_FALSE(adminLogin());
  expectSleepMode(0, 0);
}

// --- odd_values.mib ---

TEST(OddValues, OneMissingIndexFailsTheWholeList) {
  EXPECT_EQ(boxNames(30), std::nullopt);
  EXPECT_THAT(boxNames(29), testing::Optional(SizeIs(29)));
}

TEST(OddValues, OnlyTheFirstTypeCountsInAList) {
  EXPECT_EQ(colorProfiles(), std::nullopt);
  ASSERT_TRUE(QVSNMPHelper::snmpGetFormStateForIPAddress_community_(printer(), kCommunity));
  EXPECT_EQ(QVSNMPHelper::formStateArray[6], "65");
  ASSERT_TRUE(QVSNMPHelper::snmpGetFormNameForIPAddress_community_(printer(), kCommunity));
  EXPECT_EQ(QVSNMPHelper::formNameArray[6], "B");
}

TEST(OddValues, ANameOf4095BytesIsKept) {
  ASSERT_TRUE(QVSNMPHelper::snmpGetFormNameForIPAddress_community_(printer(), kCommunity));
  EXPECT_TRUE(QVSNMPHelper::formNameArray[0] == std::string(4095, 'n'));
  EXPECT_EQ(QVSNMPHelper::formNameArray[1], std::string(60, 'n'));
  EXPECT_EQ(QVSNMPHelper::formNameArray[2], "");
}

TEST(OddValues, ANameOf4096BytesIsSkippedWhichBreaksTheCount) {
  EXPECT_FALSE(
      QVSNMPHelper::snmpGetBarcodeAreDefinitionNameForIPAddress_community_(printer(), kCommunity));
  EXPECT_THAT(QVSNMPHelper::barcodeAreaDefinitionNameArray, IsEmpty());
  EXPECT_EQ(barcodeAreas(), std::nullopt);
}

TEST(OddValues, ANameThatIsNotUtf8BreaksTheCount) {
  EXPECT_FALSE(QVSNMPHelper::snmpGetColorProfileNameForIPAddress_community_(printer(), kCommunity));
  EXPECT_THAT(QVSNMPHelper::colorProfileNameArray, IsEmpty());
}

TEST(OddValues, SingleFactsOfAWrongTypeAreNotTaken) {
  EXPECT_FALSE(adminLogin());
  EXPECT_EQ(macAddress(), std::nullopt);
  expectSleepMode(0, -1);
}

// --- long_names.mib: a hundred names in one reply ---

TEST(LongNames, FitIntoOneReplyUpToTheLimitOfUdp) {
  ASSERT_TRUE(QVSNMPHelper::snmpGetFormNameForIPAddress_community_(printer(), kCommunity));
  EXPECT_THAT(QVSNMPHelper::formNameArray, Each(std::string(600, 'n')));
}

TEST(LongNames, BeyondItAreNeverAnswered) {
  EXPECT_FALSE(
      QVSNMPHelper::snmpGetBarcodeAreDefinitionNameForIPAddress_community_(printer(), kCommunity));
  EXPECT_THAT(QVSNMPHelper::barcodeAreaDefinitionNameArray, IsEmpty());
}

// --- An agent that never answers, or wants another community ---

TEST(Silence, IsThirtyBoxesNoListsAndStatusTwo) {
  EXPECT_EQ(sharedBoxCount(), 30);
  EXPECT_EQ(colorProfiles(), std::nullopt);
  EXPECT_THAT(QVSNMPHelper::colorProfileStateArray, IsEmpty());
  expectSleepMode(2, -1);
}

TEST(SilenceTimes, AreThreeTimesLongerForTheMacAddressThanForTheSleepMode) {
  const double sleepMode = secondsOf([] { expectSleepMode(2, -1); });
  const double address = secondsOf([] { EXPECT_EQ(macAddress(), std::nullopt); });
  EXPECT_GT(address, 2.5 * sleepMode);  // 1 + 5 requests against 1 + 1
  EXPECT_LT(address, 3.5 * sleepMode);
}

TEST(WrongCommunity, IsSilence) { expectSleepMode(2, -1); }

// --- odd_agent.py ---

TEST(LateAgent, IsHeardAfterTheRequestWasRepeated) { expectSleepMode(0, 1); }

TEST(SecondRequest, ForAHundredBoxesComesTenTimesLaterThanForThirty) {
  const char* address = printer();
  const double few = secondsOf([] { EXPECT_TRUE(boxStates(30)); });
  ASSERT_EQ(setenv("PRINTER", std::getenv("OTHER_PRINTER"), 1), 0);
  const double many = secondsOf([] { EXPECT_TRUE(boxStates(100)); });
  setenv("PRINTER", address, 1);
  EXPECT_GT(many, 5 * few);
  EXPECT_LT(many, 15 * few);
}

TEST(DroppedVariable, FailsTheWholeList) {
  EXPECT_FALSE(QVSNMPHelper::snmpGetFormStateForIPAddress_community_(printer(), kCommunity));
  EXPECT_THAT(QVSNMPHelper::formStateArray, IsEmpty());
  EXPECT_EQ(boxStates(100), std::nullopt);
  EXPECT_FALSE(
      QVSNMPHelper::snmpGetColorProfileStateForIPAddress_community_(printer(), kCommunity));
}

TEST(ThirtyInsteadOfAHundred, FailTheWholeList) {
  EXPECT_FALSE(QVSNMPHelper::snmpGetFormStateForIPAddress_community_(printer(), kCommunity));
  EXPECT_THAT(QVSNMPHelper::formStateArray, IsEmpty());
}

TEST(DoubledAnswer, IsTakenOnce) {
  EXPECT_THAT(boxStates(30), testing::Optional(SizeIs(30)));
  EXPECT_THAT(boxStates(30), testing::Optional(Each("1")));
}

TEST(GarbledAnswer, IsPassedOver) {
  testing::internal::CaptureStderr();
  expectSleepMode(0, 1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(AgentError, IsACompletedExchangeWithoutAValue) {
  expectSleepMode(0, -1);
  EXPECT_EQ(sharedBoxCount(), 30);
  EXPECT_FALSE(adminLogin());
  EXPECT_EQ(macAddress(), std::nullopt);
  EXPECT_EQ(boxStates(100), std::nullopt);
}

// --- An IPv6 address without a zone: the library reads "::1:161" as one address ---

TEST(PlainIPv6Address, IsTakenForAnotherOneByTheLibrary) { expectSleepMode(1, -1); }

// All printers of printer_queries_test.sh at the same time.
TEST(ManyAtATime, AreFoundOrFoundSilent) {
  const std::map<std::string, bool> expected{
      {"127.0.0.1", true},     // a proper agent
      {"[::1]", true},         // the same over IPv6
      {"[fe80::1%lo]", true},  // with a zone
      {"127.0.0.5", false},    // has another community
      {"127.0.0.20", false},   // keeps silent
      {"127.0.0.31", true},    // answers late
      {"127.0.0.32", true},    // answers the second request
      {"127.0.0.28", true},    // answers with an error
      {"127.0.0.99", false}};  // refused: nothing listens there
  std::map<std::string, bool> found;
  Presence presence;
  const auto start = std::chrono::steady_clock::now();
  for (const auto& each : expected) {
    EXPECT_TRUE(presence.ask(each.first, kCommunity, [&found, address = each.first](bool isThere) {
      found[address] = isThere;
    }));
  }
  EXPECT_EQ(presence.count(), expected.size());
  while (presence.count() > 0 &&
         std::chrono::steady_clock::now() - start < std::chrono::seconds(30)) {
    presence.look();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  const auto time = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(found, expected);
  EXPECT_GE(time, std::chrono::milliseconds(7900));
  EXPECT_LT(time, std::chrono::seconds(12));
}

TEST(ManyAtATime, SaysWhereNothingCanBeSent) {
  Presence presence;
  EXPECT_FALSE(presence.ask("[fe80::1%nosuchlink]", kCommunity, [](bool) { FAIL(); }));
  EXPECT_EQ(presence.count(), 0U);
}

}  // namespace
}  // namespace kelm::snmp
