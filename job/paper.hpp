// The printer's papers, and the size of the paper that a job is printed on.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "job/print_job.hpp"

namespace kelm::job {

// Width and height in 1/100 mm as decimal text, upright: the width is the shorter side. The sizes
// are the printer's own, not those of any published table.
struct Paper {
  const char* name;     // the PPD's choice
  const char* pjlName;  // what the header calls it
  const char* width;
  const char* height;
};

// clang-format off
inline constexpr Paper kPapers[] = {
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

// The paper of an absent choice.
inline constexpr char kDefaultPaper[] = "A4";

// The option in which the client names the paper that the pages are printed on.
inline constexpr char kMappedPaperKey[] = "com.apple.print.PageToPaperMappingMediaName";

// The paper of exactly this name, or null.
const Paper* findPaper(std::string_view name);

// The size of the job's option "media", which CUPS finds in any letter case, in 1/100 mm as decimal
// text: kDefaultPaper without the option, a paper of the table ("tabloid" is Tabloid), or
// "Custom.WIDTHxHEIGHT" in points. An unknown name leaves both unchanged.
void NotPDE_PageSize(const PrintJobData* job, std::string& width, std::string& height);

// Reads the size of a custom paper's name: the points between the first "." and the first "x", and
// the points after that "x", rounded to whole millimetres. A text without "." or "x" leaves both
// unchanged; a text that ends with the "x" leaves the height unchanged. Returns 0, or -1 when an
// argument is null.
int getCustomPaperSize(const char* text, float* width, float* height);

// Whether a custom paper's name can hold a size: it has a ".", an "x", and text after the first
// "x".
bool hasCustomPaperSize(std::string_view text);

// `millimetres` as decimal text in whole 1/100 mm.
std::string hundredthsText(float millimetres);

// The size of the paper that the job is printed on, in 1/100 mm as decimal text: the dialog's
// target paper unless it is the same as the original, else the client's mapped paper, else "media".
// Both texts are empty for a paper that is not in the table. A paper's size is given only when each
// text is shorter than the size passed for it, less 1. Returns 0, or -1 when `job`, `width` or
// `height` is null.
int getQVTargetPaperSize(const PrintJobData* job, std::string* width, std::size_t widthSize,
                         std::string* height, std::size_t heightSize);

}  // namespace kelm::job
