// The job's record, filled once from the command line and the environment, and the one lookup of
// its options.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/cups.h>
#include <cups/ppd.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "job/section_override.hpp"

#include "job/option_index.hpp"

namespace kelm::job {

// One per process, owned by the pipeline for the whole run; nothing in it is freed before the
// process ends.
struct PrintJobData {
  std::int32_t jobId = 0;
  const char* userName = nullptr;  // borrowed from the argument vector
  const char* title = nullptr;     // borrowed from the argument vector
  std::string jobNameHex;          // the job name as the header sends it
  ppd_file_t* ppd = nullptr;       // the queue's PPD; null when it cannot be opened
  std::int32_t numOptions = 0;
  cups_option_t* options = nullptr;  // the job's options alone, without the PPD's defaults
  bool isPrintPDE = false;           // the job came from the maker's print dialog
  mutable OptionIndex optionIndex;   // of `options`, for the lookups below
  std::int32_t keepOutputFace = 0;   // 1: the job's output tray decides the face, 0: face down

  // Set by the stage of standard options; jobs that it does not change keep these values.
  bool optionsSettled = false;
  std::int32_t copiesOfHeader = 0;  // that the header asks for, in place of CUPS; 0: none
  std::vector<SectionOverride> overrides;
};

// The arguments are those of a CUPS filter (filter(7)). False only for a wrong argument count, with
// the usage on standard error; a PPD that cannot be opened leaves `ppd` null and is no failure.
bool InitializePrintJobData(int argc, char* argv[], PrintJobData* job);

// The rest of the record for its title, options and PPD: marks the PPD's defaults and the job's
// choices, and sets `jobNameHex` and `isPrintPDE`.
void completePrintJobData(PrintJobData& job);

// The lookup rule of the whole system: copies the value of the first job option of exactly this
// name that has a value. Without such an option, or without a record, returns false and empties
// `destination`.
bool getOptionValue(const PrintJobData* job, const char* name, std::string& destination);

// The job's options in libcups' order; empty without a record.
std::span<cups_option_t> jobOptions(const PrintJobData* job);

// The first option of exactly this name, with or without a value, or null.
const cups_option_t* findJobOption(const PrintJobData* job, const char* name);

// Gives the job one option of this name, which counts from now on, or removes every option of this
// name. Names are compared as CUPS does, without regard to case.
void setOption(PrintJobData& job, const char* name, const std::string& value);
void removeOption(PrintJobData& job, const char* name);

// Whether the job has an output tray that leaves the output face to the job: any but "Auto" and
// "FaceDown".
bool outputTrayDecidesFace(const PrintJobData* job);

// Makes standard error unbuffered. Takes the language of PPD texts from APPLE_LANGUAGE (macOS
// clients), or else from LANG. Leaves the locale alone when neither is set.
void SetupLocale();

// Whether the option "com.apple.print.JobInfo.PMApplicationName" is "Word".
bool isApplicationMSWord(const PrintJobData* job);

// For a job from "Word": states the orientation that "orientation-requested" asks for as
// "QVOrientation" and as the dialog's preset. The number of options is deliberately not raised: an
// option that the job did not have is stored but never looked up. Always true.
bool UpdatePrintJobDataForMSWord(PrintJobData* job);

// Writes every option as a line name=value to diagnostic file 1.
void LogOptions(const PrintJobData* job);

}  // namespace kelm::job
