// The writers that derive a value themselves: what plain jobs write where a person typed a text,
// and the sections whose lines follow rules of their own.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "psrewrite/feature_tools.hpp"

namespace kelm::psrewrite {

// Plain jobs.
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

// A form of the printer by its choice or label, else the name of a form that was typed.
bool writeFormOf(JobStream& stream, LineBuffer& buffer, const PrintJobData& job,
                 const job::TextField& field);
template <const job::TextField& field>
bool writeForm(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  return writeFormOf(stream, buffer, job, field);
}

// Both roads.
bool writeTrayRepeat(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool writeOwnerName(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool writeJobName(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool writeTargetPaper(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool writeOrientation(JobStream& stream, LineBuffer& buffer, PrintJobData& job);

}  // namespace kelm::psrewrite
