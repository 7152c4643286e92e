// Any options, any PostScript: with the diagnostic files on, the output is the same, and the files
// hold the whole input and output, except zero bytes and the lines that are never logged.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "job/diagnostics.hpp"
#include "job/job_setup.hpp"
#include "tests/fuzz/fuzz_target.hpp"
#include "tests/support/diagnostics_on.hpp"
#include "tests/support/logged_job.hpp"
#include "tests/support/memory_job.hpp"
#include "tests/support/reference_loop.hpp"

namespace {

using namespace kelm;

// One object for all inputs, which share its directory.
tests::DiagnosticsOn& switchedOff() {
  auto& diagnostics = *new tests::DiagnosticsOn;
  job::LogFileMessageCheck(false);
  return diagnostics;
}

}  // namespace

// The input is that of copy_loop_fuzz: block size, options, a zero byte, PostScript.
FUZZ_TARGET(diagnostics) {
  if (size == 0) return 0;
  static tests::DiagnosticsOn& diagnostics = switchedOff();
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  const std::size_t end = std::min(text.find('\0'), text.size());
  const std::string options(text.substr(0, end));
  const std::string_view input = text.substr(std::min(end + 1, text.size()));
  auto job = tests::TestJob::parsed(options.c_str());
  job::decideCustomPaper(*job);
  job::decideOutputFace(*job);
  tests::settle(*job);
  const std::size_t blockSize = data[0] == 0 ? input.size() + 1 : data[0];
  const auto expected = tests::referenceJob(input, *job);
  const auto actual = tests::loggedJob(diagnostics, input, *job, blockSize);
  if (actual.output != expected.output) std::abort();
  if (actual.asRead != expected.asRead || actual.asWritten != expected.asWritten) std::abort();
  return 0;
}
