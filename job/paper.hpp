// The papers of the printer, and the size of the job's sheet.
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
  const char* name;
  const char* width;
  const char* height;
};

inline constexpr Paper kPapers[] = {
    {"Letter", "21600", "27900"},    {"Legal", "21600", "35600"},
    {"A3", "29700", "42000"},        {"A4", "21000", "29700"},
    {"A5", "14800", "21000"},        {"A6", "10500", "14800"},
    {"B4", "25700", "36400"},        {"B5", "18200", "25700"},
    {"B6", "12800", "18200"},        {"PostCard", "10000", "14800"},
    {"Kaku0", "28700", "38200"},     {"Kaku1", "27000", "38200"},
    {"Kaku2", "24000", "33200"},     {"Kaku3", "21600", "27700"},
    {"Naga3", "12000", "23500"},     {"Naga4", "9000", "20500"},
    {"Foolscap", "21600", "34000"},  {"Tabloid", "27900", "43200"},
    {"Statement", "14000", "21600"}, {"A3W", "31600", "46000"},
    {"SRA3", "32000", "45000"},      {"C4", "22900", "32400"},
    {"C5", "16200", "22900"},        {"C6", "11400", "16200"},
    {"DLR", "11000", "22000"},       {"Envelope1", "22900", "30500"},
    {"Envelope2", "25400", "33000"}, {"No10envelope", "10500", "24100"},
    {"PHLegal", "21600", "33000"},   {"Hachikai", "27000", "39000"},
    {"Jurokukai", "19500", "27000"},
};
static_assert(std::size(kPapers) == 31);

// The option with which the print system names the paper that the pages are put on.
inline constexpr char kMappedPaperKey[] = "com.apple.print.PageToPaperMappingMediaName";

// The paper of exactly this name, or null.
const Paper* findPaper(std::string_view name);

// The sheet of a job by its option "media": A4 without the option, the size in points of a custom
// one ("Custom.WIDTHxHEIGHT"), a paper of the table ("tabloid" is Tabloid). An unknown name leaves
// both as they are. In 1/100 mm as decimal text.
void NotPDE_PageSize(const PrintJobData* job, std::string& width, std::string& height);

// Takes the sizes out of a custom name: points between its first "." and first "x", and points
// behind that "x", as whole millimetres. A text without "." or "x" leaves both as they are, one
// with nothing behind the "x" the height. 0; -1 when an argument is null.
int getCustomPaperSize(const char* text, float* width, float* height);

// Whether a custom name has all that a size needs: ".", "x", and something behind the first "x".
bool hasCustomPaperSize(std::string_view text);

// `millimetres` in 1/100 mm, as whole decimal text.
std::string hundredthsText(float millimetres);

// The sheet that the job's pages are put on, in 1/100 mm as decimal text: the dialog's target paper
// unless it is the same as the original, else the print system's mapped paper, else "media". Both
// are emptied first, and stay so for a paper that is not in the table; a paper's width and height
// are copied only when both are shorter than their sizes less 1. 0; -1 when `job`, `width` or
// `height` is null.
int getQVTargetPaperSize(const PrintJobData* job, std::string* width, std::size_t widthSize,
                         std::string* height, std::size_t heightSize);

}  // namespace kelm::job
