// The stages of one job, in their order.
// SPDX-License-Identifier: Apache-2.0
#include "filter/pipeline.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "base/byte_source.hpp"
#include "base/number_text.hpp"
#include "filter/copy_loop.hpp"
#include "filter/termination.hpp"
#include "job/diagnostics.hpp"
#include "job/job_setup.hpp"
#include "job/ppd_calls.hpp"
#include "job/print_job.hpp"
#include "pjl/sequence.hpp"
#include "platform/platform.hpp"
#include "ppdsettings/update_job.hpp"
#include "psrewrite/job_stream.hpp"
#include "stdoptions/standard_options.hpp"
#include "wakeup/xpc_call_object.hpp"

namespace kelm::filter {
namespace {

constexpr int kExitCompleted = 0;
constexpr int kExitFailed = 1;

// The descriptor of the job's input; negative, with the reason in the system log, when its file
// cannot be opened.
int openInput(int argc, char* argv[]) {
  if (argc != 7) return STDIN_FILENO;
  const int descriptor = open(argv[6], O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) {
    platform::platform().systemLog->error("[Driver] cannot open the job's file " +
                                          std::string(argv[6]) + ": " + std::strerror(errno));
  }
  return descriptor;
}

// The exit status of a job whose input has ended; reports a read error to CUPS.
int statusOf(const base::DescriptorSource& input) {
  if (input.error() == 0) return kExitCompleted;
  std::fprintf(stderr, "ERROR: Unable to read the job - %s\n", std::strerror(input.error()));
  return kExitFailed;
}

void localizePpd(const job::PrintJobData& job) {
  if (job.ppd != nullptr) job::r_ppdLocalize(job.ppd);
}

using Updater = bool(const job::PrintJobData*);

// In the order in which an update job reports the facts to CUPS.
// clang-format off
constexpr Updater* kUpdaters[] = {
    ppdsettings::UpdatePPDOptionsUpdatedToPPD,
    ppdsettings::UpdateIsCustomSnmpCommunityToPPD,
    ppdsettings::UpdateSnmpCommunityNameToPPD,
    ppdsettings::UpdateIsWakeOnLanToPPD,
    ppdsettings::UpdateMacAddressToPPD,
    ppdsettings::UpdateOverTheRouterToPPD,
    ppdsettings::UpdateIPAddressToPPD,
    ppdsettings::UpdateSharedBoxToPPD,
    ppdsettings::UpdateUsePersonalFolderToPPD,
    ppdsettings::UpdateAdminLoginModeToPPD,
    ppdsettings::UpdatePSFormNameToPPD,
    ppdsettings::UpdateBarcodeAreaDefNameToPPD,
    ppdsettings::UpdateColorProfilesNameToPPD,
};
// clang-format on

void updatePpd(const job::PrintJobData& job) {
  for (Updater* update : kUpdaters) update(&job);
}

}  // namespace

int runFilter(int argc, char* argv[], std::FILE* output, base::DescriptorSink* direct) {
  catchTermination();
  job::ClearLogFile();
  job::logCheck = job::diagnosticsWanted();
  job::LogFileMessageCheck(job::logCheck);

  job::LogMessage("Filter started", true);

  base::DescriptorSource input(openInput(argc, argv));
  if (!input.isOpen()) {
    job::LogMessage("error. open input file.", true);
    return kExitFailed;
  }

  static job::PrintJobData jobData;
  if (!job::InitializePrintJobData(argc, argv, &jobData)) {
    job::LogMessage("Filter initialization failed", true);
    return kExitFailed;
  }
  localizePpd(jobData);
  job::LogMessage("Printer job data initialized", true);

  if (ppdsettings::ShouldUpdatePPD(&jobData)) {
    job::LogMessage("Update PPD job identified.", true);
    updatePpd(jobData);
    job::LogMessage("Filter exited successfully", true);
    return kExitCompleted;
  }

  stdoptions::settleOptions(jobData, base::leadingInteger(argv[4]));

  job::ClearLogFileName(&jobData);
  wakeup::callWoLXPC(argc, argv, &jobData);
  job::LogMessage("Wake on LAN (Send Magic Packet)", true);
  if (job::logCheck) job::LogOptions(&jobData);

  decideCustomPaper(jobData);
  decideOutputFace(jobData);

  pjl::OutputPJL(output, jobData);
  job::LogMessage("Output file opened", true);

  psrewrite::JobStream stream(input, output, direct);
  copyPostScript(stream, jobData);
  std::fflush(output);
  job::LogMessage("Output completed", true);

  job::LogMessage("Filter exited successfully", true);
  return statusOf(input);
}

}  // namespace kelm::filter
