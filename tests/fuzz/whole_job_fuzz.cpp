// Any command line, environment, PPD and PostScript of one job, with standard options if the PPD
// asks for them: the job is written with a whole header and its PostScript. An update job writes
// nothing to standard output.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

#include "filter/copy_loop.hpp"
#include "job/job_setup.hpp"
#include "job/ppd_calls.hpp"
#include "job/print_job.hpp"
#include "pjl/sequence.hpp"
#include "platform/fake/fake_platform.hpp"
#include "ppdsettings/update_job.hpp"
#include "psrewrite/job_stream.hpp"
#include "stdoptions/standard_options.hpp"
#include "tests/fuzz/fuzz_target.hpp"
#include "tests/support/memory_file.hpp"
#include "tests/support/memory_job.hpp"

namespace {

using kelm::tests::nextText;

void freeJob(kelm::job::PrintJobData& job) {
  cupsFreeOptions(job.numOptions, job.options);
  if (job.ppd != nullptr) kelm::job::r_ppdClose(job.ppd);
}

void updateFacts(const kelm::job::PrintJobData& job) {
  kelm::tests::MemoryOutput errors;
  std::FILE* const own = std::exchange(stderr, errors.stream());
  for (auto* updater :
       {kelm::ppdsettings::UpdateMacAddressToPPD, kelm::ppdsettings::UpdateSnmpCommunityNameToPPD,
        kelm::ppdsettings::UpdateSharedBoxToPPD}) {
    updater(&job);
  }
  stderr = own;
}

void printJob(kelm::job::PrintJobData& job, int copies, std::string_view postScript) {
  kelm::stdoptions::settleOptions(job, copies);
  kelm::job::decideCustomPaper(job);
  kelm::job::decideOutputFace(job);
  kelm::tests::MemorySource source(postScript);
  kelm::tests::MemoryOutput output;
  kelm::pjl::OutputPJL(output.stream(), job);
  const std::string header = output.text();
  kelm::psrewrite::JobStream stream(source, output.stream());
  kelm::filter::copyPostScript(stream, job);
  if (!header.starts_with("\x1B%-12345X@PJL\n") ||
      !header.ends_with("\n@PJL ENTER LANGUAGE=POSTSCRIPT\n")) {
    std::abort();
  }
}

}  // namespace

// User, title, options, language and PPD, each up to a zero byte, and the PostScript.
FUZZ_TARGET(whole_job) {
  const kelm::platform::FakePlatform platform;
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  std::string name = "queue";
  std::string id = "1";
  std::string user = nextText(rest);
  std::string title = nextText(rest);
  std::string options =
      nextText(rest).substr(0, 3000);  // so short that no line is too long, which would abort
  setenv("LANG", nextText(rest).c_str(), 1);
  const kelm::tests::MemoryFile ppd(nextText(rest));
  setenv("PPD", ppd.path().c_str(), 1);
  std::array<char*, 7> argv = {name.data(), id.data(),      user.data(), title.data(),
                               id.data(),   options.data(), nullptr};
  kelm::job::PrintJobData job;
  if (!kelm::job::InitializePrintJobData(6, argv.data(), &job)) std::abort();
  if (job.ppd != nullptr) kelm::job::r_ppdLocalize(job.ppd);
  if (kelm::ppdsettings::ShouldUpdatePPD(&job)) {
    updateFacts(job);
  } else {
    printJob(job, static_cast<int>(title.size() % 4), rest);
  }
  freeJob(job);
  return 0;
}
