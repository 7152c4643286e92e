// What plain jobs say of a text that a person typed.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

#include "job/print_job.hpp"
#include "job/text_fields.hpp"

namespace kelm::pjl {

// "ON" when the field has a text that may be sent, else "OFF".
void writeCustomTextSwitchLine(std::FILE* stream, const job::PrintJobData& job, const char* pjlName,
                               const job::TextField& field);

// The field's text in hex when it may be sent, else an empty value.
void writeCustomTextLine(std::FILE* stream, const job::PrintJobData& job, const char* pjlName,
                         const job::TextField& field);

}  // namespace kelm::pjl
