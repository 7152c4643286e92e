// What is taken out of an agent's response, and what is not.
// SPDX-License-Identifier: Apache-2.0
#include "snmp/response_walk.hpp"

#include <gmock/gmock.h>

#include "response.hpp"

namespace kelm::snmp {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> walk(const Response& response, ValueKind kind) {
  std::vector<std::string> values;
  walkResponse(response.pdu(), kind, values);
  return values;
}

std::vector<std::string> states(const Response& response) {
  return walk(response, ValueKind::kState);
}

std::vector<std::string> names(const Response& response) {
  return walk(response, ValueKind::kName);
}

TEST(WalkOfStates, GivesDecimalTextsInTheOrderOfTheResponse) {
  EXPECT_THAT(states(Response().integer(1).integer(0).integer(-2).integer(2147483647)),
              ElementsAre("1", "0", "-2", "2147483647"));
}

TEST(WalkOfStates, LooksAtTheTypeOfTheFirstVariableOnly) {
  EXPECT_THAT(states(Response().text("1").integer(1)), IsEmpty());
  EXPECT_THAT(states(Response().integer(1).text("A").integer(3)), ElementsAre("1", "65", "3"));
}

TEST(WalkOfStates, TakesNoMoreOfALongTextThanAnIntegerHolds) {
  const std::string zeros(300, '\0');
  EXPECT_THAT(states(Response().integer(7).text("A" + zeros)), ElementsAre("7", "65"));
}

TEST(WalkOfStates, TakesAVariableWithoutContentsAsZero) {
  EXPECT_THAT(states(Response().integer(1).nothingOfLength(8)), ElementsAre("1", "0"));
}

TEST(WalkOfNames, GivesUtf8TextsInTheOrderOfTheResponse) {
  EXPECT_THAT(names(Response().text("Müller").text("").text("帳票")),
              ElementsAre("Müller", "", "帳票"));
}

TEST(WalkOfNames, EndsANameAtItsFirstZeroByte) {
  EXPECT_THAT(names(Response().text(std::string_view("ab\0cd", 5))), ElementsAre("ab"));
}

TEST(WalkOfNames, KeepsANameOf4095Bytes) {
  const std::string longest(4095, 'n');
  EXPECT_THAT(names(Response().text(longest)), ElementsAre(longest));
}

TEST(WalkOfNames, SkipsANameOf4096BytesOrMore) {
  EXPECT_THAT(names(Response().text("a").text(std::string(4096, 'n')).text("b")),
              ElementsAre("a", "b"));
  EXPECT_THAT(names(Response().text(std::string(60000, 'n')).text("b")), ElementsAre("b"));
}

TEST(WalkOfNames, SkipsANameThatIsNotUtf8) {
  EXPECT_THAT(names(Response().text("a").text("M\xFCller").text("b")), ElementsAre("a", "b"));
}

TEST(WalkOfNames, ReadsALongNameOnlyUpToItsZeroByte) {
  EXPECT_THAT(names(Response().text(std::string("ok\0\xFF", 4))), ElementsAre("ok"));
}

TEST(WalkOfNames, LooksAtTheTypeOfTheFirstVariableOnly) {
  EXPECT_THAT(names(Response().integer(1).text("a")), IsEmpty());
  EXPECT_THAT(names(Response().text("a").integer(66).text("c")), ElementsAre("a", "B", "c"));
}

TEST(WalkOfNames, TakesAVariableWithoutContentsAsAnEmptyName) {
  EXPECT_THAT(names(Response().text("a").nothingOfLength(100)), ElementsAre("a", ""));
}

TEST(Walk, RefusesAResponseWithAnError) {
  std::vector<std::string> values;
  const Response response = std::move(Response().integer(1).error(SNMP_ERR_NOSUCHNAME));
  EXPECT_FALSE(walkResponse(response.pdu(), ValueKind::kState, values));
  EXPECT_THAT(values, IsEmpty());
}

TEST(Walk, RefusesAResponseWithoutVariablesAndNoResponse) {
  std::vector<std::string> values;
  EXPECT_FALSE(walkResponse(Response().pdu(), ValueKind::kState, values));
  EXPECT_FALSE(walkResponse(nullptr, ValueKind::kName, values));
  EXPECT_THAT(values, IsEmpty());
}

TEST(FirstInteger, IsTheFirstVariableOfARightResponse) {
  EXPECT_EQ(firstInteger(Response().integer(-5).integer(1).pdu()), -5);
  EXPECT_EQ(firstInteger(Response().text("1").pdu()), std::nullopt);
  EXPECT_EQ(firstInteger(Response().integer(1).error(SNMP_ERR_GENERR).pdu()), std::nullopt);
  EXPECT_EQ(firstInteger(Response().pdu()), std::nullopt);
  EXPECT_EQ(firstInteger(nullptr), std::nullopt);
}

TEST(FirstText, IsTheFirstVariableOfARightResponse) {
  EXPECT_EQ(firstText(Response().text("00:11:22:33:44:55").pdu()), "00:11:22:33:44:55");
  EXPECT_EQ(firstText(Response().text("").pdu()), "");
  EXPECT_EQ(firstText(Response().integer(65).pdu()), std::nullopt);
  EXPECT_EQ(firstText(Response().text("a").error(SNMP_ERR_GENERR).pdu()), std::nullopt);
  EXPECT_EQ(firstText(Response().pdu()), std::nullopt);
  EXPECT_EQ(firstText(nullptr), std::nullopt);
}

TEST(FirstText, IsNothingForSixRawBytesThatAreNotUtf8) {
  EXPECT_EQ(firstText(Response().text("\x80\x11\x22\x33\x44\x55").pdu()), std::nullopt);
}

TEST(FirstText, KeepsOfALongTextWhatFitsIntoTheBuffer) {
  EXPECT_EQ(firstText(Response().text(std::string(5000, 'm')).pdu()), std::string(4095, 'm'));
}

}  // namespace
}  // namespace kelm::snmp
