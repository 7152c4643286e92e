// Any options, of a plain job and of a dialog job: the header keeps its frame and all its lines.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "pjl/sequence.hpp"
#include "platform/fake/fake_platform.hpp"
#include "tests/fuzz/fuzz_target.hpp"
#include "tests/support/memory_job.hpp"

namespace {

// The frame has 8 lines. Each row has one line, the one of QVGCGRAY two. Some variables may be
// missing: in a plain job the host name and the two sizes of a custom paper, in a dialog job the
// host name and the zoom rate.
std::ptrdiff_t fewestLines(bool isDialogJob) {
  std::ptrdiff_t lines = 8 + 1;
  kelm::pjl::forEachStep(isDialogJob, [&](const kelm::pjl::HeaderStep&) { ++lines; });
  return lines - (isDialogJob ? 2 : 3);
}

bool isWhole(const std::string& header, bool isDialogJob) {
  return header.starts_with("\x1B%-12345X@PJL\n@PJL COMMENT ") &&
         header.ends_with("\n@PJL ENTER LANGUAGE=POSTSCRIPT\n") &&
         std::count(header.begin(), header.end(), '\n') >= fewestLines(isDialogJob);
}

void checkHeader(const std::string& options, bool isDialogJob) {
  auto job = kelm::tests::TestJob::parsed(options.c_str());
  kelm::tests::MemoryOutput output;
  kelm::pjl::OutputPJL(output.stream(), *job);
  const std::string first = output.text();
  if (!isWhole(first, isDialogJob)) std::abort();
  // A second header is the same, although the first one may change the job (a booklet's edge).
  kelm::pjl::OutputPJL(output.stream(), *job);
  if (output.text() != first + first) std::abort();
}

}  // namespace

// The input is the option string of the filter's command line.
FUZZ_TARGET(header) {
  const kelm::platform::FakePlatform platform;
  const std::string options(reinterpret_cast<const char*>(data), size);
  checkHeader(options, false);
  checkHeader("PrintPDE=1 " + options, true);
  return 0;
}
