// Asks a printer: one SNMP GET in a session of its own.
// SPDX-License-Identifier: Apache-2.0
#include "snmp/query.hpp"

#include <sys/socket.h>

#include <array>
#include <cstring>

namespace kelm::snmp {
namespace {

struct CloseSession {
  void operator()(netsnmp_session* session) const { snmp_close(session); }
};
using SessionHandle = std::unique_ptr<netsnmp_session, CloseSession>;

void addObject(netsnmp_pdu& request, const OidText& object) {
  std::array<oid, MAX_OID_LEN> identifiers{};
  std::size_t count = identifiers.size();
  if (snmp_parse_oid(object.text(), identifiers.data(), &count) == nullptr) return;
  snmp_add_null_var(&request, identifiers.data(), count);
}

// The library only reads and copies these texts, but its types are not const.
char* asLibraryText(const char* text) { return const_cast<char*>(text); }

}  // namespace

// The settings of the SNMP tools must not change how a printer is asked. So init_snmp, which reads
// configuration and MIB files, is never called, and the files for single hosts are switched off.
// Without a log handler the library would write to standard error. The first session initialises
// the library; no object identifier can be parsed before that.
void prepareLibrary() {
  [[maybe_unused]] static const bool done = [] {
    netsnmp_session first;
    snmp_sess_init(&first);
    netsnmp_ds_set_boolean(NETSNMP_DS_LIBRARY_ID, NETSNMP_DS_LIB_DONT_LOAD_HOST_FILES, 1);
    netsnmp_register_loghandler(NETSNMP_LOGHANDLER_NONE, LOG_DEBUG);
    return true;
  }();
}

bool connectToAgent(const netsnmp_transport* transport) {
  if (transport == nullptr || transport->remote == nullptr) return false;
  return connect(transport->sock, static_cast<const sockaddr*>(transport->remote),
                 static_cast<socklen_t>(transport->remote_length)) == 0;
}

netsnmp_session sessionFor(const char* peer, const char* community, const QueryOptions& options) {
  netsnmp_session session;
  snmp_sess_init(&session);
  session.version = options.version;
  session.peername = asLibraryText(peer);
  session.community = reinterpret_cast<u_char*>(asLibraryText(community));
  session.community_len = std::strlen(community);
  session.timeout = options.timeout;
  session.retries = options.retries;
  return session;
}

PduHandle requestFor(std::span<const OidText> objects) {
  prepareLibrary();
  PduHandle request(snmp_pdu_create(SNMP_MSG_GET));
  for (const OidText& object : objects) addObject(*request, object);
  return request;
}

Answer get(const char* peer, const char* community, std::span<const OidText> objects,
           const QueryOptions& options) {
  prepareLibrary();
  netsnmp_session wanted = sessionFor(peer, community, options);
  const SessionHandle session(snmp_open(&wanted));
  if (session == nullptr ||
      !connectToAgent(snmp_sess_transport(snmp_sess_pointer(session.get())))) {
    return {STAT_ERROR, nullptr};
  }
  netsnmp_pdu* response = nullptr;
  // The library owns the request from here on, also on failure.
  const int status = snmp_synch_response(session.get(), requestFor(objects).release(), &response);
  return {status, PduHandle(response)};
}

}  // namespace kelm::snmp
