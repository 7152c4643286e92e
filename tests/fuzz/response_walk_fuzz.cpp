// Any response of an agent, as the SNMP library parses it, and with every type, length and missing
// content that a variable can have: the walk stays within the values and gives only valid texts.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <deque>
#include <vector>

#include "base/utf.hpp"
#include "snmp/query.hpp"
#include "snmp/response_walk.hpp"
#include "tests/fuzz/fuzz_target.hpp"

namespace {

using kelm::tests::expect;

using namespace kelm::snmp;

bool isSound(const std::string& text) {
  return text.size() < kTextBufferSize && text.find('\0') == std::string::npos &&
         kelm::base::utf16Length(text).has_value();
}

void walkEverything(const netsnmp_pdu& response) {
  const auto variables = static_cast<std::size_t>(count_varbinds(response.variables));
  for (const ValueKind kind : {ValueKind::kState, ValueKind::kName}) {
    std::vector<std::string> values;
    const bool walked = walkResponse(&response, kind, values);
    expect(values.size() <= (walked ? variables : 0));
    expect(std::all_of(values.begin(), values.end(), isSound));
    expect(walked || kind != ValueKind::kState || !firstInteger(&response));
  }
  expect(isSound(firstText(&response).value_or("")));
}

// The response as it comes over the network. The library's messages about it are not logged.
void walkParsed(std::vector<u_char> bytes) {
  static const auto* const silence =
      netsnmp_register_loghandler(NETSNMP_LOGHANDLER_NONE, LOG_DEBUG);
  expect(silence != nullptr);
  const PduHandle response(snmp_pdu_create(SNMP_MSG_RESPONSE));
  std::size_t size = bytes.size();
  if (snmp_pdu_parse(response.get(), bytes.data(), &size) == 0) walkEverything(*response);
}

// Variables of three bytes each (type, length, whether there are contents) and their contents, each
// in an allocation of exactly its size.
void walkBuilt(const std::uint8_t* data, std::size_t size) {
  std::deque<std::vector<u_char>> contents;
  std::deque<netsnmp_variable_list> variables;
  while (size >= 3) {
    const std::size_t length = std::min<std::size_t>(data[1], size - 3);
    auto& bytes = contents.emplace_back(data + 3, data + 3 + length);
    auto& variable = variables.emplace_back();
    variable.type = data[0];
    variable.val.string = data[2] % 4 != 0 && length > 0 ? bytes.data() : nullptr;
    variable.val_len = length;
    if (variables.size() > 1) variables[variables.size() - 2].next_variable = &variable;
    data += 3 + length;
    size -= 3 + length;
  }
  netsnmp_pdu response{};
  response.variables = variables.empty() ? nullptr : &variables.front();
  walkEverything(response);
}

}  // namespace

FUZZ_TARGET(response_walk) {
  walkParsed({data, data + size});
  walkBuilt(data, size);
  return 0;
}
