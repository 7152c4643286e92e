// The printer's papers as value tables of the header, made from the one table of papers.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <iterator>
#include <string_view>

#include "job/paper.hpp"
#include "pjl/value_table.hpp"

namespace kelm::pjl {

namespace detail {

constexpr std::size_t kPaperCount = std::size(job::kPapers);

// Deliberately not constexpr: a call stops the compiler, and its error names this function.
void noPaperHasThisName();

consteval std::size_t paperIndex(std::string_view name) {
  for (std::size_t i = 0; i < kPaperCount; ++i) {
    if (job::kPapers[i].name == name) return i;
  }
  noPaperHasThisName();
  return kPaperCount;
}

// The papers' values of `member`; the default paper's for an absent choice.
consteval ValueTable<kPaperCount> paperTable(const char* job::Paper::*member) {
  ValueTable<kPaperCount> table{};
  for (std::size_t i = 0; i < kPaperCount; ++i) {
    table.rows[i] = {job::kPapers[i].name, job::kPapers[i].*member};
  }
  table.defaultIndex = paperIndex(job::kDefaultPaper);
  checkKeys(table.rows);
  return table;
}

// The papers' names, with "tabloid" as a second choice for Tabloid.
consteval ValueTable<kPaperCount + 1> pageNameTable() {
  const auto papers = paperTable(&job::Paper::pjlName);
  ValueTable<kPaperCount + 1> table{};
  table.defaultIndex = papers.defaultIndex;
  for (std::size_t i = 0; i < kPaperCount; ++i) table.rows[i] = papers.rows[i];
  table.rows[kPaperCount] = {"tabloid", papers.rows[paperIndex("Tabloid")].value};
  return table;
}

// "SameAsOriginal", which an absent option means too, and the papers' names.
consteval ValueTable<kPaperCount + 1> targetNameTable() {
  const auto papers = paperTable(&job::Paper::pjlName);
  ValueTable<kPaperCount + 1> table{};
  table.rows[0] = {"SameAsOriginal", "AUTO"};
  for (std::size_t i = 0; i < kPaperCount; ++i) table.rows[i + 1] = papers.rows[i];
  return table;
}

}  // namespace detail

// For QVPAGESIZE.
inline constexpr auto kPaperNames = detail::pageNameTable();
// For PAPER.
inline constexpr auto kTargetPaperNames = detail::targetNameTable();
// For QVPAGESIZEWIDTH and QVPAGESIZEHEIGHT, in 1/100 mm.
inline constexpr auto kPaperWidths = detail::paperTable(&job::Paper::width);
inline constexpr auto kPaperHeights = detail::paperTable(&job::Paper::height);

}  // namespace kelm::pjl
