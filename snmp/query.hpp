// Asks a printer: one SNMP GET in a session of its own.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "snmp/net_snmp.hpp"
#include "snmp/oid_tables.hpp"

namespace kelm::snmp {

// Version, timeout and retries of a query. Defaults are the SNMP library's (1 s, 5 retries). Every
// retry waits for the timeout again.
struct QueryOptions {
  long version = SNMP_VERSION_1;
  long timeout = SNMP_DEFAULT_TIMEOUT;  // microseconds
  int retries = SNMP_DEFAULT_RETRIES;
};

inline constexpr QueryOptions kUsualQuery{};
inline constexpr QueryOptions kManySharedBoxesQuery{.timeout = 10'000'000};
inline constexpr QueryOptions kSleepModeQuery{.timeout = 1'000'000, .retries = 1};
inline constexpr QueryOptions kMacAddressQuery{.timeout = 1'000'000};
inline constexpr QueryOptions kTestQuery{.version = SNMP_VERSION_2c};

struct FreePdu {
  void operator()(netsnmp_pdu* pdu) const { snmp_free_pdu(pdu); }
};
using PduHandle = std::unique_ptr<netsnmp_pdu, FreePdu>;

struct Answer {
  int status;          // STAT_SUCCESS: the exchange completed, possibly with an agent error;
                       // STAT_ERROR: nothing could be sent; STAT_TIMEOUT: no answer
  PduHandle response;  // null unless the exchange completed
};

// Asks the agent at `peer` (snmpcmd(1), AGENT SPECIFICATION) for all `objects` in one request and
// waits for the answer; messages from other addresses and ports do not count. Reads neither
// configuration nor MIB files and logs nothing.
Answer get(const char* peer, const char* community, std::span<const OidText> objects,
           const QueryOptions& options);

// The session that `get` opens. It borrows both texts.
netsnmp_session sessionFor(const char* peer, const char* community, const QueryOptions& options);

// Call it before any other function of the library: no settings are read, nothing is logged.
void prepareLibrary();

// Only the agent that was asked may answer: the kernel drops messages from other addresses. False
// when there is no way to the agent.
bool connectToAgent(const netsnmp_transport* transport);

// The request that `get` sends: one null-valued variable per object, in their order.
PduHandle requestFor(std::span<const OidText> objects);

}  // namespace kelm::snmp
