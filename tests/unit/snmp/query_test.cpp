// What is sent: the session's settings and the request.
// SPDX-License-Identifier: Apache-2.0
#include "snmp/query.hpp"

#include <gmock/gmock.h>

#include <vector>

namespace kelm::snmp {
namespace {

std::vector<std::vector<oid>> objectsOf(const netsnmp_pdu& request) {
  std::vector<std::vector<oid>> objects;
  const netsnmp_variable_list* variable = request.variables;
  for (; variable != nullptr; variable = variable->next_variable) {
    EXPECT_EQ(variable->type, ASN_NULL);
    objects.emplace_back(variable->name, variable->name + variable->name_length);
  }
  return objects;
}

TEST(SessionFor, IsVersionOneWithTheGivenCommunity) {
  const netsnmp_session session = sessionFor("192.0.2.1", "printers", kUsualQuery);
  EXPECT_EQ(session.version, SNMP_VERSION_1);
  EXPECT_EQ(session.version, 0);
  EXPECT_STREQ(session.peername, "192.0.2.1");
  EXPECT_EQ(session.community_len, 8U);
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(session.community), 8), "printers");
}

TEST(SessionFor, LeavesTimeoutAndRetriesToTheLibrary) {
  const netsnmp_session session = sessionFor("192.0.2.1", "public", kUsualQuery);
  EXPECT_EQ(session.timeout, SNMP_DEFAULT_TIMEOUT);
  EXPECT_EQ(session.retries, SNMP_DEFAULT_RETRIES);
}

TEST(SessionFor, WaitsTenSecondsForAHundredSharedBoxes) {
  const netsnmp_session session = sessionFor("192.0.2.1", "public", kManySharedBoxesQuery);
  EXPECT_EQ(session.timeout, 10'000'000);
  EXPECT_EQ(session.retries, SNMP_DEFAULT_RETRIES);
}

TEST(SessionFor, WaitsOneSecondTwiceForTheSleepMode) {
  const netsnmp_session session = sessionFor("192.0.2.1", "public", kSleepModeQuery);
  EXPECT_EQ(session.timeout, 1'000'000);
  EXPECT_EQ(session.retries, 1);
}

TEST(SessionFor, WaitsOneSecondForTheMacAddress) {
  const netsnmp_session session = sessionFor("192.0.2.1", "public", kMacAddressQuery);
  EXPECT_EQ(session.timeout, 1'000'000);
  EXPECT_EQ(session.retries, SNMP_DEFAULT_RETRIES);
}

TEST(SessionFor, IsVersionTwoForTheTestOnly) {
  EXPECT_EQ(sessionFor("localhost", "public", kTestQuery).version, SNMP_VERSION_2c);
  for (const QueryOptions& options :
       {kUsualQuery, kManySharedBoxesQuery, kSleepModeQuery, kMacAddressQuery}) {
    EXPECT_EQ(sessionFor("192.0.2.1", "public", options).version, SNMP_VERSION_1);
  }
}

TEST(RequestFor, AsksForAllObjectsInOrder) {
  const std::vector<OidText> objects{oidText(".1.3.6.1.2.1.1.5.0"),
                                     oidText(".1.3.6.1.4.1.47193.1")};
  const PduHandle request = requestFor(objects);
  EXPECT_EQ(request->command, SNMP_MSG_GET);
  EXPECT_THAT(objectsOf(*request),
              testing::ElementsAre(std::vector<oid>{1, 3, 6, 1, 2, 1, 1, 5, 0},
                                   std::vector<oid>{1, 3, 6, 1, 4, 1, 47193, 1}));
}

TEST(RequestFor, PutsAWholeFamilyIntoOneRequest) {
  const auto objects = objectsOf(*requestFor(formNameOID));
  ASSERT_EQ(objects.size(), 100U);
  EXPECT_EQ(objects.back(), (std::vector<oid>{1, 3, 6, 1, 4, 1, 47193, 1, 2, 2, 2, 10, 1, 4, 100}));
}

TEST(Get, FailsAtOnceForAPeerThatDoesNotExist) {
  const Answer answer = get("udp6:..:161", "public", formNameOID, kUsualQuery);
  EXPECT_EQ(answer.status, STAT_ERROR);
  EXPECT_EQ(answer.response, nullptr);
}

}  // namespace
}  // namespace kelm::snmp
