// Reads values from an agent's response without trusting it.
// SPDX-License-Identifier: Apache-2.0
#include "snmp/response_walk.hpp"

#include <string_view>

#include "base/utf.hpp"

namespace kelm::snmp {
namespace {

// The value's bytes as the library holds them. A value whose type has no contents has no bytes,
// whatever length the agent sent.
std::string_view bytesOf(const netsnmp_variable_list& variable) {
  if (variable.val.string == nullptr) return {};
  return {reinterpret_cast<const char*>(variable.val.string), variable.val_len};
}

// The library holds an INTEGER as a long. If a value has another type, its bytes are used.
long integerOf(const netsnmp_variable_list& variable) {
  long integer = 0;
  bytesOf(variable).copy(reinterpret_cast<char*>(&integer), sizeof integer);
  return integer;
}

// `bytes` as a terminated text: it ends at the first zero byte.
std::optional<std::string> textOf(std::string_view bytes) {
  const std::string_view text = bytes.substr(0, bytes.find('\0'));
  if (!base::utf16Length(text)) return std::nullopt;
  return std::string(text);
}

std::optional<std::string> nameOf(const netsnmp_variable_list& variable) {
  if (variable.val_len >= kTextBufferSize) return std::nullopt;
  return textOf(bytesOf(variable));
}

// The first variable of a response without an error, if it is of the ASN.1 type; else null.
const netsnmp_variable_list* firstOfType(const netsnmp_pdu* response, u_char type) {
  if (response == nullptr || response->errstat != SNMP_ERR_NOERROR) return nullptr;
  const netsnmp_variable_list* first = response->variables;
  return first != nullptr && first->type == type ? first : nullptr;
}

constexpr u_char asnType(ValueKind kind) {
  return kind == ValueKind::kState ? ASN_INTEGER : ASN_OCTET_STR;
}

std::optional<std::string> valueOf(const netsnmp_variable_list& variable, ValueKind kind) {
  if (kind == ValueKind::kState) return std::to_string(integerOf(variable));
  return nameOf(variable);
}

}  // namespace

bool walkResponse(const netsnmp_pdu* response, ValueKind kind, std::vector<std::string>& values) {
  const netsnmp_variable_list* variable = firstOfType(response, asnType(kind));
  if (variable == nullptr) return false;
  for (; variable != nullptr; variable = variable->next_variable) {
    if (auto value = valueOf(*variable, kind)) values.push_back(*std::move(value));
  }
  return true;
}

std::optional<long> firstInteger(const netsnmp_pdu* response) {
  const netsnmp_variable_list* first = firstOfType(response, ASN_INTEGER);
  if (first == nullptr) return std::nullopt;
  return integerOf(*first);
}

std::optional<std::string> firstText(const netsnmp_pdu* response) {
  const netsnmp_variable_list* first = firstOfType(response, ASN_OCTET_STR);
  if (first == nullptr) return std::nullopt;
  return textOf(bytesOf(*first).substr(0, kTextBufferSize - 1));
}

}  // namespace kelm::snmp
