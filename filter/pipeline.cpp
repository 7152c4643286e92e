// The stages of one job, in their order.
// SPDX-License-Identifier: Apache-2.0
#include "filter/pipeline.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "base/byte_source.hpp"
#include "base/number_text.hpp"
#include "filter/copy_loop.hpp"
#include "filter/job_setup.hpp"
#include "job/diagnostics.hpp"
#include "job/ppd_calls.hpp"
#include "job/print_job.hpp"
#include "pjl/sequence.hpp"
#include "ppdsettings/update_job.hpp"
#include "psrewrite/job_stream.hpp"
#include "stdoptions/standard_options.hpp"
#include "wakeup/xpc_call_object.hpp"

namespace kelm::filter {
namespace {

constexpr int kExitCompleted = 0;
constexpr int kExitFailed = 1;

// Empty on purpose: a cancelled job is still written to its end, so that the printer is not left
// waiting for the rest of a page.
void SignalHandler(int /*signal*/) {}

void catchTermination() {
  struct sigaction action {};
  action.sa_handler = SignalHandler;
  action.sa_flags = SA_RESTART;
  sigaction(SIGTERM, &action, nullptr);
}

// The descriptor of the job's input; negative when its file cannot be opened.
int openInput(int argc, char* argv[]) {
  return argc == 7 ? open(argv[6], O_RDONLY | O_CLOEXEC) : STDIN_FILENO;
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

int runFilter(int argc, char* argv[], std::FILE* output) {
  job::ClearLogFile();
  job::logCheck = job::diagnosticsWanted();
  job::LogFileMessageCheck(job::logCheck);

  job::LogMessage("Filter started", true);
  catchTermination();

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

  psrewrite::JobStream stream(input, output);
  copyPostScript(stream, jobData);
  std::fflush(output);
  job::LogMessage("Output completed", true);

  job::LogMessage("Filter exited successfully", true);
  return kExitCompleted;
}

}  // namespace kelm::filter
