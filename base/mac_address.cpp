// MAC addresses as text.
// SPDX-License-Identifier: Apache-2.0
#include "base/mac_address.hpp"

#include <charconv>

namespace kelm::base {
namespace {

bool readByte(std::string_view digits, std::uint8_t& byte) {
  const char* const end = digits.data() + digits.size();
  const auto [stop, problem] = std::from_chars(digits.data(), end, byte, 16);
  return digits.size() <= 2 && problem == std::errc() && stop == end;
}

}  // namespace

std::optional<MacAddress> macAddressOf(std::string_view text) {
  MacAddress address{};
  for (std::uint8_t& byte : address) {
    const std::size_t end = text.find(':');
    const bool last = &byte == &address.back();
    if ((end == std::string_view::npos) != last) return std::nullopt;
    if (!readByte(text.substr(0, end), byte)) return std::nullopt;
    if (!last) text.remove_prefix(end + 1);
  }
  return address;
}

}  // namespace kelm::base
