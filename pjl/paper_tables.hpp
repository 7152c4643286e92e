// The papers of the printer as the header names them, and their sizes.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

#include "job/paper.hpp"
#include "pjl/value_table.hpp"

namespace kelm::pjl {

// For QVPAGESIZE. Two choices, one value: "Tabloid" and "tabloid".
inline constexpr auto kPaperNames = valueTable(
    {
        {"Letter", "LETTER"},
        {"Legal", "LEGAL"},
        {"A3", "A3"},
        {"A4", "A4"},
        {"A5", "A5"},
        {"A6", "A6"},
        {"B4", "B4"},
        {"B5", "B5"},
        {"B6", "B6"},
        {"PostCard", "POSTCARD"},
        {"Kaku0", "ENVKAKU0"},
        {"Kaku1", "ENVKAKU1"},
        {"Kaku2", "ENVKAKU2"},
        {"Kaku3", "ENVKAKU3"},
        {"Naga3", "ENVCHOU3"},
        {"Naga4", "ENVCHOU4"},
        {"Foolscap", "FOOLSCAP"},
        {"Tabloid", "TABLOID"},
        {"Statement", "STATEMENT"},
        {"A3W", "A3W"},
        {"SRA3", "SRA3"},
        {"C4", "ENVC4"},
        {"C5", "ENVC5"},
        {"C6", "ENVC6"},
        {"DLR", "ENVDL"},
        {"Envelope1", "ENV9X12"},
        {"Envelope2", "ENV10X13"},
        {"No10envelope", "ENVNO.10"},
        {"PHLegal", "PHLEGAL"},
        {"Hachikai", "HACHIKAI"},
        {"Jurokukai", "JUROKUKAI"},
        {"tabloid", "TABLOID"},
    },
    "A4");

namespace detail {

constexpr std::size_t kPaperCount = std::size(job::kPapers);

// "SameAsOriginal", then the papers without the last row of kPaperNames.
consteval ValueTable<kPaperCount + 1> targetPaperTable() {
  ValueRow rows[kPaperCount + 1] = {{"SameAsOriginal", "AUTO"}};
  for (std::size_t i = 0; i < kPaperCount; ++i) rows[i + 1] = kPaperNames.rows[i];
  return valueTable(rows, "AUTO");
}

// The sizes of the papers; an absent choice is A4.
consteval ValueTable<kPaperCount> sizeTable(const char* job::Paper::*size) {
  ValueRow rows[kPaperCount] = {};
  std::size_t a4 = 0;
  for (std::size_t i = 0; i < kPaperCount; ++i) {
    const job::Paper& paper = job::kPapers[i];
    rows[i] = {paper.name, paper.*size};
    if (std::string_view(paper.name) == "A4") a4 = i;
  }
  ValueTable<kPaperCount> table = valueTable(rows, rows[a4].value);
  table.defaultIndex = a4;
  return table;
}

// The names that the header and the PostScript know are the same, in the same order.
consteval bool namesAgree() {
  for (std::size_t i = 0; i < kPaperCount; ++i) {
    if (std::string_view(kPaperNames.rows[i].key) != job::kPapers[i].name) return false;
  }
  return true;
}

}  // namespace detail

// For PAPER.
inline constexpr auto kTargetPaperNames = detail::targetPaperTable();
// For QVPAGESIZEWIDTH and QVPAGESIZEHEIGHT, in 1/100 mm.
inline constexpr auto kPaperWidths = detail::sizeTable(&job::Paper::width);
inline constexpr auto kPaperHeights = detail::sizeTable(&job::Paper::height);

static_assert(detail::namesAgree(), "pjl/paper_tables.hpp and job/paper.hpp name other papers");
static_assert(kPaperNames.defaultIndex == 3 && kPaperWidths.defaultIndex == 3);
static_assert(kTargetPaperNames.rows[4].value == std::string_view("A4"));

}  // namespace kelm::pjl
