// The object identifiers, number by number.
// SPDX-License-Identifier: Apache-2.0
#include "snmp/oid_tables.hpp"

#include <gtest/gtest.h>

#include <string>

namespace kelm::snmp {
namespace {

template <std::size_t Count>
void expectFamily(const OidTable<Count>& table, const std::string& prefix) {
  for (std::size_t n = 1; n <= Count; ++n) {
    EXPECT_EQ(std::string(table[n - 1].text()), prefix + "." + std::to_string(n));
  }
}

TEST(OidTables, HoldObjectNOfTheirFamilyAtIndexNMinusOne) {
  const std::string lists = ".1.3.6.1.4.1.47193.1.2.2.2.";
  expectFamily<100>(sharedBoxStateOID, lists + "6.1.2");
  expectFamily<100>(sharedBoxNameOID, lists + "6.1.3");
  expectFamily<100>(barcodeAreaDefinitionStateOID, lists + "9.1.2");
  expectFamily<100>(barcodeAreaDefinitionNameOID, lists + "9.1.4");
  expectFamily<100>(formStateOID, lists + "10.1.2");
  expectFamily<100>(formNameOID, lists + "10.1.4");
  expectFamily<30>(colorProfileStateOID, lists + "11.1.2");
  expectFamily<30>(colorProfileNameOID, lists + "11.1.4");
}

TEST(OidTables, HoldTheSingleObjects) {
  EXPECT_STREQ(kLastSharedBoxStateOid.text(), ".1.3.6.1.4.1.47193.1.2.2.2.6.1.2.100");
  EXPECT_STREQ(kAdminLoginModeOid.text(), ".1.3.6.1.4.1.47193.1.2.2.2.5.6.0");
  EXPECT_STREQ(kSleepModeOid.text(), ".1.3.6.1.4.1.47193.1.2.1.1.6.0");
  EXPECT_STREQ(kMacAddressOid.text(), ".1.3.6.1.4.1.47193.1.2.2.4.1.2.0");
  EXPECT_STREQ(kSysNameOid.text(), ".1.3.6.1.2.1.1.5.0");
}

}  // namespace
}  // namespace kelm::snmp
