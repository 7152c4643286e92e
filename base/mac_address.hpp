// MAC addresses as text.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace kelm::base {

using MacAddress = std::array<std::uint8_t, 6>;

// The address of six hexadecimal parts of one or two digits, separated by ":"; nothing for any
// other text. An address that is all zero means "none" wherever one is stored or sent.
std::optional<MacAddress> macAddressOf(std::string_view text);

constexpr bool isNone(const MacAddress& address) { return address == MacAddress{}; }

}  // namespace kelm::base
