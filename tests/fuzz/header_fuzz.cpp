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

// The frame has 8 lines. Some variables may be missing: in a plain job the host name and the two
// sizes of a custom paper, in a dialog job the host name and the zoom rate.
constexpr std::ptrdiff_t kFewestPlainLines = 8 + 102 - 3;
constexpr std::ptrdiff_t kFewestDialogLines = 8 + 133 - 2;

bool isWhole(const std::string& header, std::ptrdiff_t fewestLines) {
  return header.starts_with("\x1B%-12345X@PJL\n@PJL COMMENT ") &&
         header.ends_with("\n@PJL ENTER LANGUAGE=POSTSCRIPT\n") &&
         std::count(header.begin(), header.end(), '\n') >= fewestLines;
}

void checkHeader(const std::string& options, std::ptrdiff_t fewestLines) {
  auto job = kelm::tests::TestJob::parsed(options.c_str());
  kelm::tests::MemoryOutput output;
  kelm::pjl::OutputPJL(output.stream(), *job);
  const std::string first = output.text();
  if (!isWhole(first, fewestLines)) std::abort();
  // A second header is the same, although the first one may change the job (a booklet's edge).
  kelm::pjl::OutputPJL(output.stream(), *job);
  if (output.text() != first + first) std::abort();
}

}  // namespace

// The input is the option string of the filter's command line.
FUZZ_TARGET(header) {
  const kelm::platform::FakePlatform platform;
  const std::string options(reinterpret_cast<const char*>(data), size);
  checkHeader(options, kFewestPlainLines);
  checkHeader("PrintPDE=1 " + options, kFewestDialogLines);
  return 0;
}
