// The lines of plain jobs for a PPD option with a custom value.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/custom_text_lines.hpp"

#include "pjl/writers.hpp"

namespace kelm::pjl {

void writeCustomTextSwitchLine(std::FILE* stream, const PrintJobData& job, const char* pjlName,
                               const job::TextField& field) {
  Output_Value(stream, job, pjlName, field.isValid(job) ? "ON" : "OFF");
}

void writeCustomTextLine(std::FILE* stream, const PrintJobData& job, const char* pjlName,
                         const job::TextField& field) {
  Output_Value(stream, job, pjlName, field.validHexText(job).c_str());
}

}  // namespace kelm::pjl
