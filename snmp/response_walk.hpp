// Reads values from an agent's response without trusting it.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "snmp/net_snmp.hpp"

namespace kelm::snmp {

// The printer's texts are limited to this size in bytes, terminator included.
inline constexpr std::size_t kTextBufferSize = 4096;

enum class ValueKind {
  kState,  // INTEGER, read as a decimal text
  kName,   // OCTET STRING, read as UTF-8
};

// Appends the values of all variables of `response` to `values`, in their order. False, and nothing
// is appended, when there is no response (null), the agent reported an error or the first variable
// is not of `kind`. The types of the others are not checked: their bytes are read as `kind`.
// A name of kTextBufferSize bytes or more and one that is not valid UTF-8 add nothing.
bool walkResponse(const netsnmp_pdu* response, ValueKind kind, std::vector<std::string>& values);

// The first variable's value; nothing when there is no response, the agent reported an error or the
// variable is not INTEGER.
std::optional<long> firstInteger(const netsnmp_pdu* response);

// The first variable's text, at most the bytes that fit into the buffer; nothing when there is no
// response, the agent reported an error, or the value is not OCTET STRING or not valid UTF-8.
std::optional<std::string> firstText(const netsnmp_pdu* response);

}  // namespace kelm::snmp
