// What plain jobs say of a text that a person typed.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/typed_text.hpp"

#include "pjl/writers.hpp"

namespace kelm::pjl {

void writeTypedSwitch(std::FILE* stream, const PrintJobData& job, const char* pjlName,
                      const job::TextField& field) {
  Output_Value(stream, job, pjlName, field.isValid(job) ? "ON" : "OFF");
}

void writeTypedText(std::FILE* stream, const PrintJobData& job, const char* pjlName,
                    const job::TextField& field) {
  Output_Value(stream, job, pjlName, field.validHexText(job).c_str());
}

}  // namespace kelm::pjl
