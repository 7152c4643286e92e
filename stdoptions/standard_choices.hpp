// Standard options, and the choices of the printer's own options that their choices mean: tables
// with a row for each choice.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <iterator>
#include <span>
#include <string_view>

namespace kelm::stdoptions {

struct StandardChoice {
  const char* choice;  // of the standard option
  const char* value;   // choice of the printer's own option
};

// Where a choice is read.
enum class Source {
  kMarked,  // the PPD option's choice as libcups marked it: what pstops writes
  kJob,     // the job option as the client sent it: one keyword, or several with commas between
            // them; for IPP attributes that libcups maps in part or not at all
};

struct StandardOption {
  Source source;
  const char* keyword;                      // of the PPD option or of the IPP attribute
  const char* own;                          // the printer's own option
  std::span<const StandardChoice> choices;  // the first one is neutral: it asks for nothing
};

// clang-format off
inline constexpr StandardChoice kDuplex[] = {
    {"None", "OFF"},
    {"DuplexNoTumble", "LongEdge"},
    {"DuplexTumble", "ShortEdge"},
};
inline constexpr StandardChoice kInputSlot[] = {
    {"Auto", "Auto"},
    {"Tray1", "FeedTray1"},
    {"Tray2", "FeedTray2"},
    {"Tray3", "FeedTray3"},
    {"Main", "StandardTray"},
    {"LargeCapacity", "HighCapacityFeeder"},
    {"ExternalFeeder", "ExternalFeeder"},
};
// A job may also use the printer's own names.
inline constexpr StandardChoice kOwnInputSlot[] = {
    {"Auto", "Auto"},
    {"FeedTray1", "FeedTray1"},
    {"FeedTray2", "FeedTray2"},
    {"FeedTray3", "FeedTray3"},
    {"StandardTray", "StandardTray"},
    {"HighCapacityFeeder", "HighCapacityFeeder"},
    {"ExternalFeeder", "ExternalFeeder"},
};
inline constexpr StandardChoice kMediaType[] = {
    {"Any", "Any"},
    {"Plain", "Plain"},
    {"IJPaper", "IJPaper"},
    {"MattCoated", "MattCoated"},
    {"HighQuality", "HighQuality"},
    {"CardIJ", "CardIJ"},
    {"IJLight", "IJLight"},
    {"CrimpedPaper", "CrimpedPaper"},
};
inline constexpr StandardChoice kOutputBin[] = {
    {"Auto", "Auto"},
    {"FaceDown", "FaceDown"},
    {"Upper", "Upper"},
    {"Stacker", "Stacker"},
    {"AutoStacker", "AutoStacker"},
    {"WideStacker", "WideStacker"},
    {"HighCapacityStacker", "HighCapacityStacker"},
};
inline constexpr StandardChoice kColorModel[] = {
    {"CMYK", "Auto"},
    {"Gray", "Black"},
};
// The IPP names of trays and paper types: those that CUPS makes of the names above, and the
// registered ones that come nearest (PWG 5101.1, PWG 5100.13).
inline constexpr StandardChoice kMediaSource[] = {
    {"auto", "Auto"},
    {"feed-tray-1", "FeedTray1"},
    {"feed-tray-2", "FeedTray2"},
    {"feed-tray-3", "FeedTray3"},
    {"tray-1", "FeedTray1"},
    {"tray-2", "FeedTray2"},
    {"tray-3", "FeedTray3"},
    {"standard-tray", "StandardTray"},
    {"main", "StandardTray"},
    {"high-capacity-feeder", "HighCapacityFeeder"},
    {"large-capacity", "HighCapacityFeeder"},
    {"external-feeder", "ExternalFeeder"},
};
inline constexpr StandardChoice kIppMediaType[] = {
    {"auto", "Any"},
    {"stationery", "Plain"},
    {"ijpaper", "IJPaper"},
    {"stationery-inkjet", "IJPaper"},
    {"matt-coated", "MattCoated"},
    {"stationery-coated", "MattCoated"},
    {"high-quality", "HighQuality"},
    {"cardstock", "CardIJ"},
    {"ijlight", "IJLight"},
    {"stationery-lightweight", "IJLight"},
    {"crimped-paper", "CrimpedPaper"},
};
// PWG 5100.13: every mode without colour is black for this printer.
inline constexpr StandardChoice kPrintColorMode[] = {
    {"auto", "Auto"},
    {"color", "Auto"},
    {"monochrome", "Black"},
};
// These win over ColorModel, because cupsd and libcups add the PPD's preset for colour to such a
// job.
inline constexpr StandardChoice kBlackColorMode[] = {
    {"auto", "Auto"},
    {"auto-monochrome", "Black"},
    {"process-monochrome", "Black"},
    {"bi-level", "Black"},
    {"process-bi-level", "Black"},
};
// RFC 8011, 5.2.13: draft, normal, high.
inline constexpr StandardChoice kPrintQuality[] = {
    {"4", "Standard"},
    {"3", "Draft"},
    {"5", "Fine"},
};
// The same in cupsd's words. libcups keeps only one of the two options in a list of options.
inline constexpr StandardChoice kCupsPrintQuality[] = {
    {"Normal", "Standard"},
    {"Draft", "Draft"},
    {"High", "Fine"},
};
inline constexpr StandardChoice kCollate[] = {
    {"True", "True"},
    {"False", "False"},
};

// Where two rows name the same own option, the first one that asks for something counts.
inline constexpr StandardOption kStandardOptions[] = {
    {Source::kMarked, "Duplex", "QVDuplex", kDuplex},
    {Source::kMarked, "InputSlot", "QVInputSlot", kInputSlot},
    {Source::kJob, "InputSlot", "QVInputSlot", kOwnInputSlot},
    {Source::kMarked, "MediaType", "QVMediaType", kMediaType},
    {Source::kJob, "media", "QVInputSlot", kInputSlot},
    {Source::kJob, "media", "QVInputSlot", kOwnInputSlot},
    {Source::kJob, "media", "QVInputSlot", kMediaSource},
    {Source::kJob, "media-source", "QVInputSlot", kMediaSource},
    {Source::kJob, "media", "QVMediaType", kMediaType},
    {Source::kJob, "media", "QVMediaType", kIppMediaType},
    {Source::kJob, "media-type", "QVMediaType", kIppMediaType},
    {Source::kMarked, "OutputBin", "QVOutputTray", kOutputBin},
    {Source::kJob, "print-color-mode", "QVOutputMode", kBlackColorMode},
    {Source::kMarked, "ColorModel", "QVOutputMode", kColorModel},
    {Source::kJob, "print-color-mode", "QVOutputMode", kPrintColorMode},
    {Source::kJob, "print-quality", "QVImageQuality", kPrintQuality},
    {Source::kJob, "cupsPrintQuality", "QVImageQuality", kCupsPrintQuality},
    {Source::kMarked, "Collate", "QVCollate", kCollate},
};
// clang-format on

namespace detail {

// If a choice were in two rows of a table, the second row would never be found.
consteval bool noChoiceTwice() {
  return std::ranges::all_of(kStandardOptions, [](const StandardOption& option) {
    for (std::size_t i = 0; i < option.choices.size(); ++i) {
      for (std::size_t j = 0; j < i; ++j) {
        if (std::string_view(option.choices[i].choice) == option.choices[j].choice) return false;
      }
    }
    return !option.choices.empty();
  });
}

}  // namespace detail

static_assert(detail::noChoiceTwice(), "a standard option has no choices, or one of them twice");

}  // namespace kelm::stdoptions
