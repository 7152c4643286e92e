// Any options, any PostScript: with the diagnostic files on, the output is the same, and the files
// hold all of input and output except zero bytes and the lines that no file holds.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "filter/copy_loop.hpp"
#include "job/diagnostics.hpp"
#include "job/job_setup.hpp"
#include "psrewrite/job_stream.hpp"
#include "tests/support/diagnostics_on.hpp"
#include "tests/support/memory_job.hpp"
#include "tests/support/reference_loop.hpp"

namespace {

using namespace kelm;

std::string loggedCopy(std::string_view input, std::size_t blockSize, job::PrintJobData& job) {
  tests::MemorySource source(input, blockSize);
  tests::MemoryOutput output;
  psrewrite::JobStream stream(source, output.stream());
  job::LogFileMessageCheck(true);
  filter::copyPostScript(stream, job);
  job::LogFileMessageCheck(false);
  return output.text();
}

std::string takenContent(const tests::DiagnosticsOn& diagnostics, const char* name) {
  std::string content = diagnostics.content(name);
  std::filesystem::remove(diagnostics.platform.fileRoot.root + name);
  return content == "no file" ? std::string() : content;
}

}  // namespace

// The input is that of copy_loop_fuzz: block size, options, a zero byte, PostScript.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  static const tests::DiagnosticsOn& diagnostics = *new tests::DiagnosticsOn;
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  const std::size_t end = std::min(text.find('\0'), text.size());
  const std::string options(text.substr(0, end));
  const std::string_view input = text.substr(std::min(end + 1, text.size()));
  auto job = tests::TestJob::parsed(options.c_str());
  job::decideCustomPaper(*job);
  job::decideOutputFace(*job);
  tests::settle(*job);
  const std::size_t blockSize = data[0] == 0 ? input.size() + 1 : data[0];
  const job::PrintJobData nameless;
  job::LogFileMessageCheck(true);
  job::ClearLogFileName(&nameless);
  job::LogFileMessageCheck(false);
  const auto expected = tests::referenceJob(input, *job);
  if (loggedCopy(input, blockSize, *job) != expected.output) std::abort();
  if (takenContent(diagnostics, job::file_2_Name) != expected.asRead) std::abort();
  if (takenContent(diagnostics, job::file_3_Name) != expected.asWritten) std::abort();
  return 0;
}
