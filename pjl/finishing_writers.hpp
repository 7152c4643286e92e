// The writers with logic of their own among the variables of output, forms and the job's identity.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

#include "job/print_job.hpp"

namespace kelm::pjl {

using job::PrintJobData;

// Face down, unless the job has an output tray that leaves the choice.
void writeOutputFaceLine(std::FILE* stream, PrintJobData& job);
void writeFormSelect1Line(std::FILE* stream, PrintJobData& job);
void writeFormSelect2Line(std::FILE* stream, PrintJobData& job);

// Free texts go in hex; the PIN goes as typed.
void writeOwnerSwitchLine(std::FILE* stream, PrintJobData& job);
void writeUserNameLine(std::FILE* stream, PrintJobData& job);
void writeJobNameSwitchLine(std::FILE* stream, PrintJobData& job);
void writeJobNameLine(std::FILE* stream, PrintJobData& job);
void writeSecretNumSwitchLine(std::FILE* stream, PrintJobData& job);
void writePasswordLine(std::FILE* stream, PrintJobData& job);
void writeJobCommentLine(std::FILE* stream, PrintJobData& job);

}  // namespace kelm::pjl
