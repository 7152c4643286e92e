// The writers with logic of their own among the variables of host, zoom, paper, copies and trays.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/paper_writers.hpp"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string>
#include <utility>

#include "base/hex_text.hpp"
#include "job/paper.hpp"
#include "job/ppd_choices.hpp"
#include "pjl/paper_tables.hpp"
#include "pjl/value_tables.hpp"
#include "pjl/writers.hpp"
#include "platform/platform.hpp"

namespace kelm::pjl {
namespace {

using job::kMappedPaperKey;

constexpr char kCopiesKey[] = "com.apple.print.PrintSettings.PMCopies..n.";

// The row for an absent option when the PPD has no default for it.
constexpr std::size_t kDuplexWithoutPpd = 1;
// Both tables have the same choices in the same order: they share a default index.
constexpr auto kDuplex =
    valueTable({{"OFF", "OFF"}, {"LongEdge", "ON"}, {"ShortEdge", "ON"}}, "OFF");
constexpr auto kBindingEdge =
    valueTable({{"OFF", "OFF"}, {"LongEdge", "LONGEDGE"}, {"ShortEdge", "SHORTEDGE"}}, "OFF");

// One of the two dimensions of a paper, and its names in the header and the dialog.
struct Side {
  bool isWidth;
  const char* pageVariable;
  const char* pageDialogKey;
  const char* targetVariable;
  const char* targetDialogKey;
  ValueTableView papers;
};
constexpr Side kWidth{true,
                      "QVPAGESIZEWIDTH",
                      "QVPAGESizeWidthValue100",
                      "QVTARGETPAPERSIZEWIDTH",
                      "QVTargetPaperSizeWidthValue100",
                      kPaperWidths};
constexpr Side kHeight{false,
                       "QVPAGESIZEHEIGHT",
                       "QVPAGESizeHeightValue100",
                       "QVTARGETPAPERSIZEHEIGHT",
                       "QVTargetPaperSizeHeightValue100",
                       kPaperHeights};

// The value of the job's first option with this name; null without one.
const char* firstValue(const PrintJobData& job, const char* name) {
  const cups_option_t* option = findJobOption(&job, name);
  return option == nullptr ? nullptr : option->value;
}

bool isCollated(const PrintJobData& job) {
  if (job.isPrintPDE) {
    const char* collate = firstValue(job, "QVCollateValue");
    return collate != nullptr && std::strcmp(collate, "1") == 0;
  }
  const char* collate = firstValue(job, "QVCollate");
  return collate == nullptr ||
         (std::strcmp(collate, "False") != 0 && std::strcmp(collate, "false") != 0);
}

// libcups frees the value later, so it must come from libcups' own allocator.
void replaceValue(cups_option_t& option, const char* value) {
  cups_option_t* replacement = nullptr;
  const int count = cupsAddOption(option.name, value, 0, &replacement);
  if (count == 1) std::swap(option.value, replacement->value);
  cupsFreeOptions(count, replacement);
}

// A booklet is folded at the short edge, whatever duplex edge the job asks for.
void forceShortEdgeForBooklet(PrintJobData& job) {
  const char* booklet = firstValue(job, "QVBookletBinding");
  if (booklet == nullptr || std::strcmp(booklet, "OFF") == 0) return;
  for (cups_option_t& option : jobOptions(&job)) {
    if (std::strcmp(option.name, "QVDuplex") == 0) replaceValue(option, "ShortEdge");
  }
}

std::size_t duplexDefaultIndex(const PrintJobData& job) {
  const char* choice = job::getDefaultValue(&job, "QVDuplex");
  if (choice == nullptr) return kDuplexWithoutPpd;
  const auto isChoice = [&](const ValueRow& row) { return std::strcmp(row.key, choice) == 0; };
  const auto row = std::find_if(std::begin(kDuplex.rows), std::end(kDuplex.rows), isChoice);
  return row == std::end(kDuplex.rows) ? 0
                                       : static_cast<std::size_t>(row - std::begin(kDuplex.rows));
}

std::string sheetSize(const PrintJobData& job, const Side& side) {
  std::string width;
  std::string height;
  job::NotPDE_PageSize(&job, width, height);
  return side.isWidth ? width : height;
}

void writeCustomPageSideLine(std::FILE* stream, const PrintJobData& job, const Side& side,
                             const std::string& paper) {
  if (!job::hasCustomPaperSize(paper)) return;
  float width = 0;
  float height = 0;
  job::getCustomPaperSize(paper.c_str(), &width, &height);
  const std::string text = job::hundredthsText(side.isWidth ? width : height);
  Output_Value(stream, job, side.pageVariable, text.c_str());
}

void writePageSideLine(std::FILE* stream, const PrintJobData& job, const Side& side) {
  std::string paper;
  if (job.isPrintPDE || !getOptionValue(&job, kMappedPaperKey, paper)) {
    const std::string size = sheetSize(job, side);
    Output_CopyValue(stream, job, side.pageDialogKey, side.pageVariable, size.c_str());
  } else if (paper.find("Custom") != std::string::npos) {
    writeCustomPageSideLine(stream, job, side, paper);
  } else {
    Output_KeyValue(stream, job, kMappedPaperKey, side.pageVariable, side.papers.rows,
                    side.papers.defaultIndex);
  }
}

void writeTargetSideLine(std::FILE* stream, const PrintJobData& job, const Side& side) {
  if (job.isPrintPDE) {
    const std::string size = sheetSize(job, side);
    return Output_CopyValue(stream, job, side.targetDialogKey, side.targetVariable, size.c_str());
  }
  std::string width;
  std::string height;
  job::getQVTargetPaperSize(&job, &width, base::kTextBufferSize, &height, base::kTextBufferSize);
  Output_Value(stream, job, side.targetVariable, side.isWidth ? width.c_str() : height.c_str());
}

}  // namespace

void writeHostNameLine(std::FILE* stream, PrintJobData& job) {
  std::string name;
  if (!getOptionValue(&job, "QVHostNameValue", name)) {
    name = platform::platform().computerName->get();
    if (name.size() >= base::kTextBufferSize) name.clear();
  }
  if (name.empty()) return;
  Output_Value(stream, job, "QVHOSTNAME", base::hexTextInBuffer(name).c_str());
}

void writeManualZoomLine(std::FILE* stream, PrintJobData& job) {
  if (job.isPrintPDE) {
    return Output_KeyValue(stream, job, "QVZoomRateValue", "QVMANUALZOOM", kDialogSwitch.rows,
                           kDialogSwitch.defaultIndex);
  }
  std::string rate;
  const bool on = getOptionValue(&job, "QVZoomRate", rate) && rate != "OFF";
  Output_Value(stream, job, "QVMANUALZOOM", on ? "ON" : "OFF");
}

void writeZoomRateLine(std::FILE* stream, PrintJobData& job) {
  std::string rate;
  if (job.isPrintPDE) {
    if (!getOptionValue(&job, "QVZoomRateTextValue", rate)) return;
  } else if (!getOptionValue(&job, "QVZoomRate", rate) || rate == "OFF") {
    rate = "100";
  }
  Output_Value(stream, job, "QVZOOMRATE", rate.c_str());
}

void writeCopiesLine(std::FILE* stream, PrintJobData& job) {
  Output_CopyValue(stream, job, kCopiesKey, isCollated(job) ? "QTY" : "COPIES", "1");
}

void writeDuplexLine(std::FILE* stream, PrintJobData& job) {
  forceShortEdgeForBooklet(job);
  Output_KeyValue(stream, job, "QVDuplex", "DUPLEX", kDuplex.rows, duplexDefaultIndex(job));
}

void writeBindingEdgeLine(std::FILE* stream, PrintJobData& job) {
  forceShortEdgeForBooklet(job);
  Output_KeyValue(stream, job, "QVDuplex", "BINDING", kBindingEdge.rows, duplexDefaultIndex(job));
}

void writePageSizeLine(std::FILE* stream, PrintJobData& job) {
  if (Output_IfValueContains(stream, job, kMappedPaperKey, "Custom", "QVPAGESIZE", "CUSTOMSIZE") ==
      1) {
    return;
  }
  Output_KeyValue(stream, job, kMappedPaperKey, "QVPAGESIZE", kPaperNames.rows,
                  kPaperNames.defaultIndex);
}

void writePageWidthLine(std::FILE* stream, PrintJobData& job) {
  writePageSideLine(stream, job, kWidth);
}

void writePageHeightLine(std::FILE* stream, PrintJobData& job) {
  writePageSideLine(stream, job, kHeight);
}

void writeTargetPaperLine(std::FILE* stream, PrintJobData& job) {
  constexpr char kKey[] = "QVTargetPaperSize";
  if (Output_IfValueContains(stream, job, kKey, "SameAsOriginal", "PAPER", "AUTO") == 1) return;
  if (Output_IfValueContains(stream, job, kKey, "Custom", "PAPER", "CUSTOMSIZE") == 1) return;
  Output_KeyValue(stream, job, kKey, "PAPER", kTargetPaperNames.rows,
                  kTargetPaperNames.defaultIndex);
}

void writeTargetWidthLine(std::FILE* stream, PrintJobData& job) {
  writeTargetSideLine(stream, job, kWidth);
}

void writeTargetHeightLine(std::FILE* stream, PrintJobData& job) {
  writeTargetSideLine(stream, job, kHeight);
}

void writePageTrayRepeatLine(std::FILE* stream, PrintJobData& job) {
  if (Output_IfValueContains(stream, job, "QVPageTrayRepeatButtonValue", "0", "QVPAGETRAYREPEAT",
                             "0") == 1) {
    return;
  }
  Output_CopyValue(stream, job, "QVPageTrayRepeatTextValue", "QVPAGETRAYREPEAT", "0");
}

}  // namespace kelm::pjl
