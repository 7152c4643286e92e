// The writers with logic of their own among the variables of output, forms and the job's identity.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

#include "job/print_job.hpp"

namespace kelm::pjl {

using job::PrintJobData;

// FACEDOWN unless the job's output tray supports both faces.
void writeOutputFaceLine(std::FILE* stream, PrintJobData& job);
void writeFormSelect1Line(std::FILE* stream, PrintJobData& job);
void writeFormSelect2Line(std::FILE* stream, PrintJobData& job);

// Free texts are sent in hex, the PIN in clear.
void writeOwnerSwitchLine(std::FILE* stream, PrintJobData& job);
void writeUserNameLine(std::FILE* stream, PrintJobData& job);
void writeJobNameSwitchLine(std::FILE* stream, PrintJobData& job);
void writeJobNameLine(std::FILE* stream, PrintJobData& job);
void writeSecretNumSwitchLine(std::FILE* stream, PrintJobData& job);
void writePasswordLine(std::FILE* stream, PrintJobData& job);
void writeJobCommentLine(std::FILE* stream, PrintJobData& job);

}  // namespace kelm::pjl
