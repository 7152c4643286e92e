// The writers that derive a value themselves: plain jobs' custom values, and the sections with
// rules of their own.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "psrewrite/feature_tools.hpp"

namespace kelm::psrewrite {

// For plain jobs.
bool writeBarcodeText(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool writeBarcodeSwitch(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool writeOutputProfile(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool writeSecretNum(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool writeJobComment(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool writeManualZoom(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool writeTargetWidth(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool writeTargetHeight(JobStream& stream, LineBuffer& buffer, PrintJobData& job);

// "On" when the job has a text for the field that may be sent, else "Off".
bool writeSwitchOf(JobStream& stream, LineBuffer& buffer, const PrintJobData& job,
                   const job::TextField& field);
template <const job::TextField& field>
bool writeSwitch(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  return writeSwitchOf(stream, buffer, job, field);
}

// The tag of a form of the printer, given by its choice or label, else the custom text.
bool writeFormOf(JobStream& stream, LineBuffer& buffer, const PrintJobData& job,
                 const job::TextField& field);
template <const job::TextField& field>
bool writeForm(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  return writeFormOf(stream, buffer, job, field);
}

// For dialog jobs and plain jobs.
bool writeTrayRepeat(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool writeOwnerName(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool writeJobName(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool writeTargetPaper(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool writeOrientation(JobStream& stream, LineBuffer& buffer, PrintJobData& job);

}  // namespace kelm::psrewrite
