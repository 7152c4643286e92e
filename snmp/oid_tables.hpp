// The printer's objects in its private MIB, as the dotted texts that the SNMP library parses.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace kelm::snmp {

// One object identifier in dotted form.
struct OidText {
  std::array<char, 40> characters;  // terminated

  constexpr const char* text() const { return characters.data(); }
};

template <std::size_t Count>
using OidTable = std::array<OidText, Count>;

namespace detail {

constexpr std::size_t decimalDigits(std::size_t number) {
  return number < 10 ? 1 : 1 + decimalDigits(number / 10);
}

}  // namespace detail

// `text` as an object identifier; one that is too long does not compile.
consteval OidText oidText(std::string_view text) {
  OidText oid{};
  for (std::size_t i = 0; i < text.size(); ++i) oid.characters.at(i) = text[i];
  oid.characters.at(text.size()) = '\0';
  return oid;
}

// `prefix` + "." + `number`.
consteval OidText oidText(std::string_view prefix, std::size_t number) {
  OidText oid = oidText(prefix);
  std::size_t end = prefix.size();
  oid.characters.at(end) = '.';
  end += detail::decimalDigits(number);
  oid.characters.at(end + 1) = '\0';
  for (; number > 0; number /= 10) oid.characters.at(end--) = static_cast<char>('0' + number % 10);
  return oid;
}

// The objects 1 to Count of a family, object n at index n - 1.
template <std::size_t Count>
consteval OidTable<Count> oidTable(std::string_view prefix) {
  OidTable<Count> table{};
  for (std::size_t i = 0; i < Count; ++i) table[i] = oidText(prefix, i + 1);
  return table;
}

inline constexpr auto sharedBoxStateOID = oidTable<100>(".1.3.6.1.4.1.47193.1.2.2.2.6.1.2");
inline constexpr auto sharedBoxNameOID = oidTable<100>(".1.3.6.1.4.1.47193.1.2.2.2.6.1.3");
inline constexpr auto barcodeAreaDefinitionStateOID =
    oidTable<100>(".1.3.6.1.4.1.47193.1.2.2.2.9.1.2");
inline constexpr auto barcodeAreaDefinitionNameOID =
    oidTable<100>(".1.3.6.1.4.1.47193.1.2.2.2.9.1.4");
inline constexpr auto formStateOID = oidTable<100>(".1.3.6.1.4.1.47193.1.2.2.2.10.1.2");
inline constexpr auto formNameOID = oidTable<100>(".1.3.6.1.4.1.47193.1.2.2.2.10.1.4");
inline constexpr auto colorProfileStateOID = oidTable<30>(".1.3.6.1.4.1.47193.1.2.2.2.11.1.2");
inline constexpr auto colorProfileNameOID = oidTable<30>(".1.3.6.1.4.1.47193.1.2.2.2.11.1.4");

// Only printers with 100 shared boxes have this one.
inline constexpr OidText kLastSharedBoxStateOid = oidText(".1.3.6.1.4.1.47193.1.2.2.2.6.1.2.100");
inline constexpr OidText kAdminLoginModeOid = oidText(".1.3.6.1.4.1.47193.1.2.2.2.5.6.0");
inline constexpr OidText kSleepModeOid = oidText(".1.3.6.1.4.1.47193.1.2.1.1.6.0");
inline constexpr OidText kMacAddressOid = oidText(".1.3.6.1.4.1.47193.1.2.2.4.1.2.0");
inline constexpr OidText kSysNameOid = oidText(".1.3.6.1.2.1.1.5.0");  // MIB-II (RFC 1213)

static_assert(std::string_view(sharedBoxStateOID.back().text()) == kLastSharedBoxStateOid.text());
static_assert(std::string_view(sharedBoxNameOID.front().text()) ==
              ".1.3.6.1.4.1.47193.1.2.2.2.6.1.3.1");
static_assert(std::string_view(colorProfileNameOID[9].text()) ==
              ".1.3.6.1.4.1.47193.1.2.2.2.11.1.4.10");

}  // namespace kelm::snmp
