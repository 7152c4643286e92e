// The lines of plain jobs for a PPD option with a custom value.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

#include "job/print_job.hpp"
#include "job/text_fields.hpp"

namespace kelm::pjl {

// "ON" when the job has a valid custom value of the field, else "OFF".
void writeCustomTextSwitchLine(std::FILE* stream, const job::PrintJobData& job, const char* pjlName,
                               const job::TextField& field);

// The custom value in hex when it is valid, else an empty value.
void writeCustomTextLine(std::FILE* stream, const job::PrintJobData& job, const char* pjlName,
                         const job::TextField& field);

}  // namespace kelm::pjl
