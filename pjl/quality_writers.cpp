// The writers with logic of their own among the variables of colour, barcodes and profiles.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/quality_writers.hpp"

#include <string>
#include <string_view>

#include "pjl/custom_text_lines.hpp"
#include "pjl/value_tables.hpp"
#include "pjl/writers.hpp"

namespace kelm::pjl {

void writeGrayAndRedLines(std::FILE* stream, PrintJobData& job) {
  if (job.isPrintPDE) {
    Output_CopyValue(stream, job, "QVGCGrayStringValue", "QVGCGRAY", "100");
    Output_CopyValue(stream, job, "QVGCRedStringValue", "QVGCRED", "100");
  } else {
    Output_CopyValue(stream, job, "QVGCRed", "QVGCRED", "100");
    Output_CopyValue(stream, job, "QVGCGray", "QVGCGRAY", "100");
  }
}

void writeBarcodeAreaLine(std::FILE* stream, PrintJobData& job) {
  constexpr char kVariable[] = "QVBARCODEAREA";
  if (!job.isPrintPDE) {
    return writeCustomTextSwitchLine(stream, job, kVariable, job::kBarcodeSelection);
  }
  Output_KeyValue(stream, job, "QVBarcodeArea", kVariable, kSwitch.rows, kSwitch.defaultIndex);
}

void writeBarcodeSelectionLine(std::FILE* stream, PrintJobData& job) {
  constexpr char kVariable[] = "QVBARCODESELECTION";
  if (!job.isPrintPDE) {
    return writeCustomTextLine(stream, job, kVariable, job::kBarcodeSelection);
  }
  Output_CopyValue(stream, job, "QVBarcodeAreaDefinitionStringValueUTF8", kVariable, "");
}

void writeOutputProfileLine(std::FILE* stream, PrintJobData& job) {
  constexpr char kVariable[] = "QVOUTPUTPROFILESELECTION";
  if (job.isPrintPDE) {
    return Output_CopyValue(stream, job, "QVOutputProfileSelectionStringValueUTF8", kVariable, "");
  }
  const job::TextField& field = job::kOutputProfile;
  const char* named = field.namedChoice(job);
  const std::string_view choice = named != nullptr ? named : "";
  if (choice == "NotUse") return Output_Value(stream, job, kVariable, "NOTUSE");
  if (choice == "Auto" || !field.isValid(job)) return Output_Value(stream, job, kVariable, "AUTO");
  Output_Value(stream, job, kVariable, field.hexText(job).c_str());
}

}  // namespace kelm::pjl
