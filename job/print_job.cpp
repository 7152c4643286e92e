// The job's record, filled once from the command line and the environment.
// SPDX-License-Identifier: Apache-2.0
#include "job/print_job.hpp"

#include <strings.h>
#include <sys/stat.h>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "base/hex_text.hpp"
#include "base/number_text.hpp"
#include "job/diagnostics.hpp"
#include "job/ppd_calls.hpp"
#include "platform/platform.hpp"

namespace kelm::job {
namespace {

// A FIFO would keep the job waiting for a writer.
bool isRegularFile(const char* path) {
  struct stat status {};
  return stat(path, &status) == 0 && S_ISREG(status.st_mode);
}

ppd_file_t* openPpd() {
  const char* path = std::getenv("PPD");
  return path != nullptr && isRegularFile(path) ? r_ppdOpenFile(path) : nullptr;
}

void markPpd(const PrintJobData& job) {
  if (job.ppd == nullptr) return;
  r_ppdMarkDefaults(job.ppd);
  r_cupsMarkOptions(job.ppd, job.numOptions, job.options);
}

// If the job asks for it, the name that the dialog prepared, unchanged; else the title.
std::string jobNameFor(const PrintJobData& job) {
  std::string name;
  if (getOptionValue(&job, "QVJobName", name) && name == "ON") {
    const bool given = getOptionValue(&job, "QVJobNameTextValueUTF8", name);
    if (!given || !name.empty()) return name;
  }
  return base::hexTextInBuffer(job.title);
}

// The position of the first option of this name; beyond the last one when there is none.
std::size_t positionOf(const PrintJobData* job, const char* name) {
  const std::span<cups_option_t> options = jobOptions(job);
  return options.empty() ? 0 : job->optionIndex.find(options, name);
}

// Replaces the value of an option that the job has. A new option goes after those that numOptions
// counts: libcups would sort it among them, and the last one would no longer be counted.
void addOption(PrintJobData& job, const char* name, const char* value) {
  const int count = cupsAddOption(name, value, job.numOptions, &job.options);
  if (count == job.numOptions) return;
  const auto isNew = [&](const cups_option_t& option) { return !strcasecmp(option.name, name); };
  cups_option_t* const end = job.options + count;
  cups_option_t* const added = std::find_if(job.options, end, isNew);
  std::rotate(added, added + 1, end);
}

}  // namespace

bool InitializePrintJobData(int argc, char* argv[], PrintJobData* job) {
  if (argc != 6 && argc != 7) {
    std::fprintf(stderr, "Usage: %s job user title copies options [op filename]\n",
                 argc > 0 ? argv[0] : "");
    return false;
  }
  SetupLocale();
  job->jobId = base::leadingInteger(argv[1]);
  job->userName = argv[2];
  job->title = argv[3];
  job->numOptions = cupsParseOptions(argv[5], 0, &job->options);
  job->ppd = openPpd();
  completePrintJobData(*job);
  return true;
}

void completePrintJobData(PrintJobData& job) {
  markPpd(job);
  job.jobNameHex = jobNameFor(job);
  LogMessage(job.jobNameHex.c_str(), true);
  std::string ignored;
  job.isPrintPDE = getOptionValue(&job, "PrintPDE", ignored);
}

bool getOptionValue(const PrintJobData* job, const char* name, std::string& destination) {
  destination.clear();
  const std::span<cups_option_t> options = jobOptions(job);
  for (std::size_t i = positionOf(job, name); i < options.size(); ++i) {
    if (options[i].value == nullptr || std::strcmp(options[i].name, name) != 0) continue;
    destination = options[i].value;
    return true;
  }
  return false;
}

std::span<cups_option_t> jobOptions(const PrintJobData* job) {
  if (job == nullptr || job->numOptions < 1) return {};
  return {job->options, static_cast<std::size_t>(job->numOptions)};
}

const cups_option_t* findJobOption(const PrintJobData* job, const char* name) {
  const std::span<cups_option_t> options = jobOptions(job);
  const std::size_t position = positionOf(job, name);
  return position < options.size() ? &options[position] : nullptr;
}

void setOption(PrintJobData& job, const char* name, const std::string& value) {
  // cupsAddOption would keep the upper and lower case of an old name.
  const bool exists = cupsGetOption(name, job.numOptions, job.options) != nullptr;
  if (exists && findJobOption(&job, name) == nullptr) removeOption(job, name);
  job.numOptions = cupsAddOption(name, value.c_str(), job.numOptions, &job.options);
  job.optionIndex.forget();
}

void removeOption(PrintJobData& job, const char* name) {
  job.numOptions = cupsRemoveOption(name, job.numOptions, &job.options);
  job.optionIndex.forget();
  if (job.numOptions > 0) return;
  // libcups would forget the empty list.
  std::free(job.options);
  job.options = nullptr;
}

bool outputTrayDecidesFace(const PrintJobData* job) {
  const cups_option_t* tray = findJobOption(job, "QVOutputTray");
  return tray != nullptr && tray->value != nullptr && std::strcmp(tray->value, "Auto") != 0 &&
         std::strcmp(tray->value, "FaceDown") != 0;
}

void SetupLocale() {
  std::setvbuf(stderr, nullptr, _IONBF, 0);
  const char* language = std::getenv("APPLE_LANGUAGE");
  if (language == nullptr) language = std::getenv("LANG");
  if (language == nullptr) return;
  platform::platform().jobLanguage->prefer(language);
  std::setlocale(LC_ALL, "");
}

bool isApplicationMSWord(const PrintJobData* job) {
  std::string application;
  return getOptionValue(job, "com.apple.print.JobInfo.PMApplicationName", application) &&
         application == "Word";
}

bool UpdatePrintJobDataForMSWord(PrintJobData* job) {
  if (job == nullptr || !isApplicationMSWord(job)) return true;
  std::string requested;
  const bool landscape =
      getOptionValue(job, "orientation-requested", requested) && requested == "4";
  addOption(*job, "QVOrientation", landscape ? "Landscape" : "Portrait");
  addOption(*job, "com.apple.print.preset.Orientation..n.", landscape ? "2" : "1");
  return true;
}

void LogOptions(const PrintJobData* job) {
  for (const cups_option_t& option : jobOptions(job)) {
    LogFile1Message(option.name, false);
    LogFile1Message("=", false);
    LogFile1Message(option.value != nullptr ? option.value : "", true);
  }
}

}  // namespace kelm::job
