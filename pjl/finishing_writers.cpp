// The writers with logic of their own among the variables of output, forms and the job's identity.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/finishing_writers.hpp"

#include <string>

#include "base/hex_text.hpp"
#include "job/console_user.hpp"
#include "job/forms.hpp"
#include "pjl/typed_text.hpp"
#include "pjl/value_tables.hpp"
#include "pjl/writers.hpp"

namespace kelm::pjl {
namespace {

constexpr std::size_t kConsoleUserBufferSize = 512;
constexpr auto kForms = valueTable(job::kFormTags, "");

void writeForm(std::FILE* stream, PrintJobData& job, const char* dialogKey, const char* pjlName,
               const job::TextField& field) {
  if (job.isPrintPDE) return Output_CopyValue(stream, job, dialogKey, pjlName, "");
  const char* choice = field.namedChoice(job);
  if (choice == nullptr) return writeTypedText(stream, job, pjlName, field);
  Output_ValueWithArray(stream, job, pjlName, choice, kForms.rows, true);
}

// The switch of a typed text: as the dialog sets it, else whether there is a text.
void writeTextSwitch(std::FILE* stream, PrintJobData& job, const char* dialogKey,
                     const char* pjlName, const job::TextField& field) {
  if (!job.isPrintPDE) return writeTypedSwitch(stream, job, pjlName, field);
  Output_KeyValue(stream, job, dialogKey, pjlName, kSwitch.rows, kSwitch.defaultIndex);
}

}  // namespace

void writeOutputFace(std::FILE* stream, PrintJobData& job) {
  constexpr char kVariable[] = "QVOUTPUTFACE";
  if (!outputTrayDecidesFace(&job)) return Output_Value(stream, job, kVariable, "FACEDOWN");
  Output_KeyValue(stream, job, "QVOutputFace", kVariable, kOutputFace.rows,
                  kOutputFace.defaultIndex);
}

void writeFormSelect1(std::FILE* stream, PrintJobData& job) {
  writeForm(stream, job, "QVFormSelect1StringValueUTF8", "QVFORMSELECT1", job::kFormSelect1);
}

void writeFormSelect2(std::FILE* stream, PrintJobData& job) {
  writeForm(stream, job, "QVFormSelect2StringValueUTF8", "QVFORMSELECT2", job::kFormSelect2);
}

void writeOwnerSwitch(std::FILE* stream, PrintJobData& job) {
  writeTextSwitch(stream, job, "QVOwnerName", "QVOWNERNAME", job::kOwnerName);
}

void writeUserName(std::FILE* stream, PrintJobData& job) {
  constexpr char kVariable[] = "USERNAME";
  const std::string user = job::consoleUserHex(kConsoleUserBufferSize);
  if (job.isPrintPDE) {
    return Output_CopyValue(stream, job, "QVOwnerNameTextValueUTF8", kVariable, user.c_str());
  }
  const job::TextField& field = job::kOwnerName;
  const std::string name = field.isValid(job) ? field.hexText(job, user) : user;
  Output_Value(stream, job, kVariable, name.c_str());
}

void writeJobNameSwitch(std::FILE* stream, PrintJobData& job) {
  writeTextSwitch(stream, job, "QVJobName", "QVJOBNAME", job::kJobName);
}

void writeJobName(std::FILE* stream, PrintJobData& job) {
  constexpr char kVariable[] = "JOBNAME";
  if (job.isPrintPDE) return Output_Value(stream, job, kVariable, job.jobNameHex.c_str());
  const job::TextField& field = job::kJobName;
  const std::string title = base::hexText(job.title);
  const std::string name = field.isValid(job) ? field.hexText(job, title) : title;
  Output_Value(stream, job, kVariable, name.c_str());
}

void writeSecretNumSwitch(std::FILE* stream, PrintJobData& job) {
  writeTextSwitch(stream, job, "QVSecretNum", "QVSECRETNUM", job::kSecretNum);
}

void writePassword(std::FILE* stream, PrintJobData& job) {
  constexpr char kVariable[] = "PASSWORD";
  if (job.isPrintPDE) {
    return Output_CopyValue(stream, job, "QVSecretNumTextValue", kVariable, "");
  }
  const job::TextField& field = job::kSecretNum;
  const std::string number = field.isValid(job) ? field.rawText(job) : std::string();
  Output_Value(stream, job, kVariable, number.c_str());
}

void writeJobComment(std::FILE* stream, PrintJobData& job) {
  constexpr char kVariable[] = "QVJOBCOMMENT";
  if (job.isPrintPDE) {
    return Output_CopyValue(stream, job, "QVJobCommentTextValueUTF8", kVariable, "");
  }
  writeTypedText(stream, job, kVariable, job::kJobComment);
}

}  // namespace kelm::pjl
