// Value tables: the value that the printer gets for each choice of a PPD option.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "base/value_row.hpp"

namespace kelm::pjl {

using base::ValueRow;

// The rows in the table's own order, and the index of the row for an absent option.
struct ValueTableView {
  std::span<const ValueRow> rows;
  std::size_t defaultIndex;
};

template <std::size_t Count>
struct ValueTable {
  ValueRow rows[Count];
  std::size_t defaultIndex;

  constexpr operator ValueTableView() const { return {rows, defaultIndex}; }
};

namespace detail {

// Deliberately not constexpr: a faulty table calls one of them, and the compiler's error names it.
void theDefaultIsNoValueOfThisTable();
void aKeyAppearsTwiceInThisTable();

template <std::size_t Count>
consteval std::size_t indexOfValue(const ValueRow (&rows)[Count], std::string_view value) {
  for (std::size_t i = 0; i < Count; ++i) {
    if (rows[i].value != nullptr && rows[i].value == value) return i;
  }
  theDefaultIsNoValueOfThisTable();
  return Count;
}

template <std::size_t Count>
consteval void checkKeys(const ValueRow (&rows)[Count]) {
  for (std::size_t i = 0; i < Count; ++i) {
    for (std::size_t j = i + 1; j < Count; ++j) {
      if (rows[i].key == nullptr || rows[j].key == nullptr) continue;
      if (std::string_view(rows[i].key) == rows[j].key) aKeyAppearsTwiceInThisTable();
    }
  }
}

}  // namespace detail

// Makes a table that the compiler checks: no key appears twice, and `absent`, the value for an
// absent option, is one of the table's values. The default is the first row with that value.
template <std::size_t Count>
consteval ValueTable<Count> valueTable(const ValueRow (&rows)[Count], std::string_view absent) {
  detail::checkKeys(rows);
  ValueTable<Count> table{};
  for (std::size_t i = 0; i < Count; ++i) table.rows[i] = rows[i];
  table.defaultIndex = detail::indexOfValue(rows, absent);
  return table;
}

}  // namespace kelm::pjl
