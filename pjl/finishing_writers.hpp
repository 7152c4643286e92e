// The writers with logic of their own among the variables of output, forms and the job's identity.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

#include "job/print_job.hpp"

namespace kelm::pjl {

using job::PrintJobData;

// Face down, unless the job has an output tray that leaves the choice.
void writeOutputFace(std::FILE* stream, PrintJobData& job);
void writeFormSelect1(std::FILE* stream, PrintJobData& job);
void writeFormSelect2(std::FILE* stream, PrintJobData& job);

// Free texts go in hex; the PIN goes as typed.
void writeOwnerSwitch(std::FILE* stream, PrintJobData& job);
void writeUserName(std::FILE* stream, PrintJobData& job);
void writeJobNameSwitch(std::FILE* stream, PrintJobData& job);
void writeJobName(std::FILE* stream, PrintJobData& job);
void writeSecretNumSwitch(std::FILE* stream, PrintJobData& job);
void writePassword(std::FILE* stream, PrintJobData& job);
void writeJobComment(std::FILE* stream, PrintJobData& job);

}  // namespace kelm::pjl
