// The writers that derive a value themselves.
// SPDX-License-Identifier: Apache-2.0
#include "psrewrite/special_writers.hpp"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>

#include "base/hex_text.hpp"
#include "job/console_user.hpp"
#include "job/diagnostics.hpp"
#include "job/forms.hpp"
#include "job/paper.hpp"
#include "psrewrite/line_tools.hpp"

namespace kelm::psrewrite {
namespace {

constexpr char kOwnerTextKey[] = "QVOwnerNameTextValueUTF8";
constexpr char kJobOwnerKey[] = "com.apple.print.JobInfo.PMJobOwner";
constexpr char kJobNameTextKey[] = "QVJobNameTextValueUTF8";
constexpr char kJobNameKey[] = "com.apple.print.JobInfo.PMJobName";

const base::ValueRow* formTag(const char* choice) {
  if (choice == nullptr) return nullptr;
  const auto row = std::find_if(
      std::begin(job::kFormTags), std::end(job::kFormTags),
      [&](const base::ValueRow& candidate) { return std::strcmp(choice, candidate.key) == 0; });
  return row == std::end(job::kFormTags) ? nullptr : row;
}

// The custom text in hex when it may be sent, else an empty text.
bool writeCustomText(JobStream& stream, LineBuffer& buffer, const PrintJobData& job,
                     const job::TextField& field) {
  return outputCustomTextByReplacingValue(stream, buffer, job, field.key, field.validHexText(job));
}

// Whether the dialog switched the text on and sent one.
bool dialogBringsText(const PrintJobData& job, const char* switchKey, const char* textKey) {
  std::string value;
  return getOptionValue(&job, switchKey, value) && getOptionValue(&job, textKey, value) &&
         !value.empty();
}

bool writeTargetSize(JobStream& stream, LineBuffer& buffer, const PrintJobData& job, bool wanted) {
  std::string width;
  std::string height;
  job::getQVTargetPaperSize(&job, &width, base::kTextBufferSize, &height, base::kTextBufferSize);
  return outputReplacingValue(stream, buffer, nullptr, wanted ? width.c_str() : height.c_str());
}

}  // namespace

bool writeBarcodeText(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  return writeCustomText(stream, buffer, job, job::kBarcodeSelection);
}

bool writeBarcodeSwitch(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  return writeSwitchOf(stream, buffer, job, job::kBarcodeSelection);
}

bool writeOutputProfile(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  const char* choice = job::kOutputProfile.namedChoice(job);
  if (choice != nullptr && (!std::strcmp(choice, "Auto") || !std::strcmp(choice, "NotUse"))) {
    return outputReplacingValue(stream, buffer, nullptr, choice);
  }
  const std::string text =
      job::kOutputProfile.isValid(job) ? job::kOutputProfile.hexText(job) : "Auto";
  return outputCustomTextByReplacingValue(stream, buffer, job, job::kOutputProfile.key, text);
}

bool writeSecretNum(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  const std::string number =
      job::kSecretNum.isValid(job) ? job::kSecretNum.rawText(job) : std::string();
  return outputCustomTextByReplacingValue(stream, buffer, job, job::kSecretNum.key, number);
}

bool writeJobComment(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  return writeCustomText(stream, buffer, job, job::kJobComment);
}

bool writeManualZoom(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  std::string rate;
  const bool on = getOptionValue(&job, "QVZoomRate", rate) && rate != "OFF";
  return outputReplacingValue(stream, buffer, nullptr, on ? "ON" : "OFF");
}

bool writeTargetWidth(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  return writeTargetSize(stream, buffer, job, true);
}

bool writeTargetHeight(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  return writeTargetSize(stream, buffer, job, false);
}

bool writeSwitchOf(JobStream& stream, LineBuffer& buffer, const PrintJobData& job,
                   const job::TextField& field) {
  return outputReplacingValue(stream, buffer, nullptr, field.isValid(job) ? "On" : "Off");
}

bool writeFormOf(JobStream& stream, LineBuffer& buffer, const PrintJobData& job,
                 const job::TextField& field) {
  const base::ValueRow* form = formTag(field.namedChoice(job));
  if (form == nullptr) return writeCustomText(stream, buffer, job, field);
  return outputReplacingValue(stream, buffer, nullptr, base::hexText(form->value).c_str());
}

// In a dialog job the two branches expect different forms of the value line.
bool writeTrayRepeat(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  if (!job.isPrintPDE) return dropUnlogged(stream, buffer, job);
  std::string button;
  getOptionValue(&job, "QVPageTrayRepeatButtonValue", button);
  if (button != "1") return outputReplacingValue(stream, buffer, nullptr, "0");
  return outputFeatureByReplacingValue(stream, buffer, job, "QVPageTrayRepeatTextValue", "0");
}

bool writeOwnerName(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  if (job.isPrintPDE) {
    const bool own = dialogBringsText(job, "QVOwnerName", kOwnerTextKey);
    return outputFeatureByReplacingValue(stream, buffer, job, own ? kOwnerTextKey : kJobOwnerKey,
                                         "");
  }
  const std::string hex = job::kOwnerName.isValid(job) ? job::kOwnerName.hexText(job)
                                                       : job::consoleUserHex(base::kTextBufferSize);
  return outputCustomTextByReplacingValue(stream, buffer, job, job::kOwnerName.key, hex);
}

bool writeJobName(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  if (job.isPrintPDE) {
    if (dialogBringsText(job, "QVJobName", kJobNameTextKey)) {
      return outputFeatureByReplacingValue(stream, buffer, job, kJobNameTextKey, "");
    }
    return outputReplacingValue(stream, buffer, nullptr, job.jobNameHex.c_str()) ||
           outputFeatureByReplacingValue(stream, buffer, job, kJobNameKey, "");
  }
  const std::string hex =
      job::kJobName.isValid(job) ? job::kJobName.hexText(job) : base::hexText(job.title);
  return outputCustomTextByReplacingValue(stream, buffer, job, job::kJobName.key, hex);
}

bool writeTargetPaper(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  std::string paper;
  getOptionValue(&job, "QVTargetPaperSize", paper);
  if (!job.isPrintPDE || paper != "Custom") return copy(stream, buffer, job);
  return readValueLine(stream, buffer) && writeWithValue(stream, buffer, "CustomSize");
}

bool writeOrientation(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  std::string choice;
  if (!readValueLine(stream, buffer) || !getOptionValue(&job, "QVOrientation", choice)) {
    return false;
  }
  std::optional<std::string> turned;
  if (choice == "Portrait" || choice == "0") {
    turned = replace_str(buffer.text(), "Landscape", "Portrait");
  } else if (choice == "Landscape" || choice == "1") {
    turned = replace_str(buffer.text(), "Portrait", "Landscape");
  }
  stream.write(turned ? std::string_view(*turned) : std::string_view(buffer.text()));
  return true;
}

}  // namespace kelm::psrewrite
