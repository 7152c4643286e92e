// The one way to ask a printer: a single SNMP GET in a session of its own.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "snmp/net_snmp.hpp"
#include "snmp/oid_tables.hpp"

namespace kelm::snmp {

// How to ask; what is not said is the SNMP library's default (1 s, 5 retries). Every retry waits
// for the timeout again.
struct Manner {
  long version = SNMP_VERSION_1;
  long timeout = SNMP_DEFAULT_TIMEOUT;  // microseconds
  int retries = SNMP_DEFAULT_RETRIES;
};

inline constexpr Manner kUsualManner{};
inline constexpr Manner kManySharedBoxesManner{.timeout = 10'000'000};
inline constexpr Manner kSleepModeManner{.timeout = 1'000'000, .retries = 1};
inline constexpr Manner kMacAddressManner{.timeout = 1'000'000};
inline constexpr Manner kTestManner{.version = SNMP_VERSION_2c};

struct FreePdu {
  void operator()(netsnmp_pdu* pdu) const { snmp_free_pdu(pdu); }
};
using PduHandle = std::unique_ptr<netsnmp_pdu, FreePdu>;

struct Answer {
  int status;          // STAT_SUCCESS: the exchange completed, maybe with an error from the agent;
                       // STAT_ERROR: nothing could be sent; STAT_TIMEOUT: nothing came back
  PduHandle response;  // null unless the exchange completed
};

// Asks the agent at `peer`, written as the SNMP library reads it (snmpcmd(1), AGENT SPECIFICATION),
// for all `objects` in one request, and waits for the answer. Neither configuration nor MIB files
// are read, and nothing is logged.
Answer get(const char* peer, const char* community, std::span<const OidText> objects,
           const Manner& manner);

// The session that `get` opens. It borrows both texts.
netsnmp_session sessionFor(const char* peer, const char* community, const Manner& manner);

// The request that `get` sends: one null-valued variable per object, in their order.
PduHandle requestFor(std::span<const OidText> objects);

}  // namespace kelm::snmp
