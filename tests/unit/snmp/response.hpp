// Hand-made responses of an agent.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstring>
#include <string_view>

#include "snmp/query.hpp"

namespace kelm::snmp {

// A response to which a test adds what an agent could have put into it.
class Response {
 public:
  Response() { pdu_->errstat = SNMP_ERR_NOERROR; }

  Response& integer(long value) { return add(ASN_INTEGER, &value, sizeof value); }
  Response& text(std::string_view bytes) { return add(ASN_OCTET_STR, bytes.data(), bytes.size()); }

  // A variable without contents for which the agent claimed a length.
  Response& nothingOfLength(std::size_t length) {
    add(ASN_NULL, nullptr, 0);
    last_->val_len = length;
    return *this;
  }

  Response& error(long status) {
    pdu_->errstat = status;
    return *this;
  }

  Response& add(u_char type, const void* value, std::size_t length) {
    constexpr std::array<oid, 3> kName{1, 3, 6};
    last_ = snmp_pdu_add_variable(pdu_.get(), kName.data(), kName.size(), type, value, length);
    return *this;
  }

  const netsnmp_pdu* pdu() const { return pdu_.get(); }

 private:
  PduHandle pdu_{snmp_pdu_create(SNMP_MSG_RESPONSE)};
  netsnmp_variable_list* last_ = nullptr;
};

}  // namespace kelm::snmp
