// What the printer says about itself: its lists, its modes and its MAC address.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelm::snmp {

// Class methods only; each asks the printer with one or more SNMP GET requests and waits for the
// answers. Addresses are IPv4 addresses, IPv6 addresses or host names; addresses and communities
// are UTF-8 and never null. An IPv6 address is best given in brackets: without them the SNMP
// library takes its last group for the port. No answer, an agent's error, a wrong type and an
// incomplete list are all the same: false, nothing, or what the method says. The arrays are shared
// by all calls, so the class is for one thread at a time.
class QVSNMPHelper {
 public:
  using TextArray = std::vector<std::string>;

  QVSNMPHelper() = delete;

  // The last answer of the query that fills the array; empty before the first one and after one
  // that failed. States are decimal texts, "1" for an entry in use.
  static inline TextArray sharedBoxStateArray;
  static inline TextArray sharedBoxNameArray;
  static inline TextArray formStateArray;
  static inline TextArray formNameArray;
  static inline TextArray barcodeAreaDefinitionStateArray;
  static inline TextArray barcodeAreaDefinitionNameArray;
  static inline TextArray colorProfileStateArray;
  static inline TextArray colorProfileNameArray;

  // All names or all states of the boxes 1 to `totalCount` (1 to 100), in use or not: the caller
  // pairs the two by index.
  static std::optional<TextArray> getValidatedSharedBoxNameArrayForIPAddress_community_totalCount_(
      const char* address, const char* community, std::int64_t totalCount);
  static std::optional<TextArray> getValidatedSharedBoxStateArrayForIPAddress_community_totalCount_(
      const char* address, const char* community, std::int64_t totalCount);

  // The names of the entries in use, in index order; there may be none.
  static std::optional<TextArray> getValidatedFormNameArrayForIPAddress_community_(
      const char* address, const char* community);
  static std::optional<TextArray> getValidatedBarcodeAreaNameArrayForIPAddress_community_(
      const char* address, const char* community);
  static std::optional<TextArray> getValidatedColorProfileForIPAddress_community_(
      const char* address, const char* community);

  // Whether the printer's administrator log-in mode is on.
  static bool getAdminLoginModeEnabled_community_(const char* address, const char* community);

  // How many shared boxes to ask for: 100, or 30 when the printer has no box 100 or does not say.
  static int snmpGetSharedBoxEntryForIPAddress_community_(const char* address,
                                                          const char* community);

  // Each fills its array and returns whether the printer gave exactly as many values as there are
  // objects: `totalCount` for shared boxes (1 to 100, other counts are refused), 30 for colour
  // profiles, 100 for the others.
  static bool snmpGetSharedBoxStateForIPAddress_community_totalCount_(const char* address,
                                                                      const char* community,
                                                                      std::int64_t totalCount);
  static bool snmpGetSharedBoxNameForIPAddress_community_totalCount_(const char* address,
                                                                     const char* community,
                                                                     std::int64_t totalCount);
  static bool snmpGetFormStateForIPAddress_community_(const char* address, const char* community);
  static bool snmpGetFormNameForIPAddress_community_(const char* address, const char* community);
  static bool snmpGetBarcodeAreDefinitionStateForIPAddress_community_(const char* address,
                                                                      const char* community);
  static bool snmpGetBarcodeAreDefinitionNameForIPAddress_community_(const char* address,
                                                                     const char* community);
  static bool snmpGetColorProfileStateForIPAddress_community_(const char* address,
                                                              const char* community);
  static bool snmpGetColorProfileNameForIPAddress_community_(const char* address,
                                                             const char* community);
  static bool snmpGetAdminLoginModeEnabled_community_(const char* address, const char* community);

  // Puts the printer's sleep mode into `sleepMode`, -1 when it gives none. The result is 0 when the
  // printer answered, even with an error; 1 when it could not be asked, 2 when it kept silent.
  static int getSleepMode_community_sleepMode_(const char* address, const char* community,
                                               std::int32_t* sleepMode);

  // The MAC address in the printer's own spelling.
  static std::optional<std::string> getMacAddress_community_(const char* address,
                                                             const char* community);

  // Writes the SNMP library's name of the agent at `sourceAddr`: anything with a colon is an IPv6
  // address and goes to port 161 over IPv6; everything else is left unchanged.
  static void getConvertedAddress_sourceAddr_(std::string& destination, const char* sourceAddr);

  // Asks this machine's own agent for its name: shows whether SNMP works at all. Always empty.
  static std::string snmpGetTestValue();
};

}  // namespace kelm::snmp
