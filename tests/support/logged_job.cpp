// A job's PostScript, copied with the diagnostic files switched on.
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/logged_job.hpp"

#include <filesystem>
#include <string>
#include <utility>

#include "filter/copy_loop.hpp"
#include "job/diagnostics.hpp"
#include "psrewrite/job_stream.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::tests {
namespace {

std::string copied(std::string_view input, std::size_t blockSize, job::PrintJobData& job) {
  MemorySource source(input, blockSize);
  MemoryOutput output;
  psrewrite::JobStream stream(source, output.stream());
  filter::copyPostScript(stream, job);
  return output.text();
}

// The content of a file that is removed; empty when nothing was written to it.
std::string takenContent(const DiagnosticsOn& diagnostics, const char* name) {
  std::string content = diagnostics.content(name);
  std::filesystem::remove(diagnostics.platform.fileRoot.root + name);
  return content == "no file" ? std::string() : content;
}

}  // namespace

ReferenceJob loggedJob(DiagnosticsOn& diagnostics, std::string_view input, job::PrintJobData& job,
                       std::size_t blockSize) {
  job::LogFileMessageCheck(true);
  diagnostics.nameFiles();
  std::string output = copied(input, blockSize, job);
  job::LogFileMessageCheck(false);
  return {std::move(output), takenContent(diagnostics, job::file_2_Name),
          takenContent(diagnostics, job::file_3_Name)};
}

}  // namespace kelm::tests
