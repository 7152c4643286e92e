// The writers with logic of their own among the variables of output, forms and the job's identity.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/finishing_writers.hpp"

#include <string>

#include "base/hex_text.hpp"
#include "job/console_user.hpp"
#include "job/forms.hpp"
#include "pjl/custom_text_lines.hpp"
#include "pjl/value_tables.hpp"
#include "pjl/writers.hpp"

namespace kelm::pjl {
namespace {

// Part of the interface: a name that needs more bytes, with its terminator, counts as none. Other
// texts have 4096.
constexpr std::size_t kConsoleUserBufferSize = 512;
constexpr auto kForms = valueTable(job::kFormTags, "");

void writeFormLine(std::FILE* stream, PrintJobData& job, const char* dialogKey, const char* pjlName,
                   const job::TextField& field) {
  if (job.isPrintPDE) return Output_CopyValue(stream, job, dialogKey, pjlName, "");
  const char* choice = field.namedChoice(job);
  if (choice == nullptr) return writeCustomTextLine(stream, job, pjlName, field);
  Output_ValueWithArray(stream, job, pjlName, choice, kForms.rows, true);
}

// The switch of a custom value: as the dialog sets it; for plain jobs, whether there is a valid
// one.
void writeTextSwitchLine(std::FILE* stream, PrintJobData& job, const char* dialogKey,
                         const char* pjlName, const job::TextField& field) {
  if (!job.isPrintPDE) return writeCustomTextSwitchLine(stream, job, pjlName, field);
  Output_KeyValue(stream, job, dialogKey, pjlName, kSwitch.rows, kSwitch.defaultIndex);
}

}  // namespace

void writeOutputFaceLine(std::FILE* stream, PrintJobData& job) {
  constexpr char kVariable[] = "QVOUTPUTFACE";
  if (!outputTrayDecidesFace(&job)) return Output_Value(stream, job, kVariable, "FACEDOWN");
  Output_KeyValue(stream, job, "QVOutputFace", kVariable, kOutputFace.rows,
                  kOutputFace.defaultIndex);
}

void writeFormSelect1Line(std::FILE* stream, PrintJobData& job) {
  writeFormLine(stream, job, "QVFormSelect1StringValueUTF8", "QVFORMSELECT1", job::kFormSelect1);
}

void writeFormSelect2Line(std::FILE* stream, PrintJobData& job) {
  writeFormLine(stream, job, "QVFormSelect2StringValueUTF8", "QVFORMSELECT2", job::kFormSelect2);
}

void writeOwnerSwitchLine(std::FILE* stream, PrintJobData& job) {
  writeTextSwitchLine(stream, job, "QVOwnerName", "QVOWNERNAME", job::kOwnerName);
}

void writeUserNameLine(std::FILE* stream, PrintJobData& job) {
  constexpr char kVariable[] = "USERNAME";
  const std::string user = job::consoleUserHex(kConsoleUserBufferSize);
  if (job.isPrintPDE) {
    return Output_CopyValue(stream, job, "QVOwnerNameTextValueUTF8", kVariable, user.c_str());
  }
  const job::TextField& field = job::kOwnerName;
  const std::string name = field.isValid(job) ? field.hexText(job, user) : user;
  Output_Value(stream, job, kVariable, name.c_str());
}

void writeJobNameSwitchLine(std::FILE* stream, PrintJobData& job) {
  writeTextSwitchLine(stream, job, "QVJobName", "QVJOBNAME", job::kJobName);
}

void writeJobNameLine(std::FILE* stream, PrintJobData& job) {
  constexpr char kVariable[] = "JOBNAME";
  if (job.isPrintPDE) return Output_Value(stream, job, kVariable, job.jobNameHex.c_str());
  const job::TextField& field = job::kJobName;
  const std::string title = base::hexText(job.title);
  const std::string name = field.isValid(job) ? field.hexText(job, title) : title;
  Output_Value(stream, job, kVariable, name.c_str());
}

void writeSecretNumSwitchLine(std::FILE* stream, PrintJobData& job) {
  writeTextSwitchLine(stream, job, "QVSecretNum", "QVSECRETNUM", job::kSecretNum);
}

void writePasswordLine(std::FILE* stream, PrintJobData& job) {
  constexpr char kVariable[] = "PASSWORD";
  if (job.isPrintPDE) {
    return Output_CopyValue(stream, job, "QVSecretNumTextValue", kVariable, "");
  }
  const job::TextField& field = job::kSecretNum;
  const std::string number = field.isValid(job) ? field.rawText(job) : std::string();
  Output_Value(stream, job, kVariable, number.c_str());
}

void writeJobCommentLine(std::FILE* stream, PrintJobData& job) {
  constexpr char kVariable[] = "QVJOBCOMMENT";
  if (job.isPrintPDE) {
    return Output_CopyValue(stream, job, "QVJobCommentTextValueUTF8", kVariable, "");
  }
  writeCustomTextLine(stream, job, kVariable, job::kJobComment);
}

}  // namespace kelm::pjl
