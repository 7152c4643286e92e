// The printer's papers, for all tests that need every paper.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::tests {

// Width and height in 1/100 mm, upright.
struct ExpectedPaper {
  const char* choice;
  const char* pjlName;
  const char* width;
  const char* height;
};

// clang-format off
inline constexpr ExpectedPaper kExpectedPapers[] = {
    {"Letter", "LETTER", "21600", "27900"},
    {"Legal", "LEGAL", "21600", "35600"},
    {"A3", "A3", "29700", "42000"},
    {"A4", "A4", "21000", "29700"},
    {"A5", "A5", "14800", "21000"},
    {"A6", "A6", "10500", "14800"},
    {"B4", "B4", "25700", "36400"},
    {"B5", "B5", "18200", "25700"},
    {"B6", "B6", "12800", "18200"},
    {"PostCard", "POSTCARD", "10000", "14800"},
    {"Kaku0", "ENVKAKU0", "28700", "38200"},
    {"Kaku1", "ENVKAKU1", "27000", "38200"},
    {"Kaku2", "ENVKAKU2", "24000", "33200"},
    {"Kaku3", "ENVKAKU3", "21600", "27700"},
    {"Naga3", "ENVCHOU3", "12000", "23500"},
    {"Naga4", "ENVCHOU4", "9000", "20500"},
    {"Foolscap", "FOOLSCAP", "21600", "34000"},
    {"Tabloid", "TABLOID", "27900", "43200"},
    {"Statement", "STATEMENT", "14000", "21600"},
    {"A3W", "A3W", "31600", "46000"},
    {"SRA3", "SRA3", "32000", "45000"},
    {"C4", "ENVC4", "22900", "32400"},
    {"C5", "ENVC5", "16200", "22900"},
    {"C6", "ENVC6", "11400", "16200"},
    {"DLR", "ENVDL", "11000", "22000"},
    {"Envelope1", "ENV9X12", "22900", "30500"},
    {"Envelope2", "ENV10X13", "25400", "33000"},
    {"No10envelope", "ENVNO.10", "10500", "24100"},
    {"PHLegal", "PHLEGAL", "21600", "33000"},
    {"Hachikai", "HACHIKAI", "27000", "39000"},
    {"Jurokukai", "JUROKUKAI", "19500", "27000"},
};
// clang-format on

}  // namespace kelm::tests
