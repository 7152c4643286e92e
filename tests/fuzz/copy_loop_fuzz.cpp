// Any options, any PostScript, read in blocks of any size: the copy loop writes what the character
// loop writes.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "filter/copy_loop.hpp"
#include "job/job_setup.hpp"
#include "platform/fake/fake_platform.hpp"
#include "psrewrite/job_stream.hpp"
#include "tests/fuzz/fuzz_target.hpp"
#include "tests/support/memory_job.hpp"
#include "tests/support/reference_loop.hpp"

namespace {

std::string copyInBlocks(std::string_view input, std::size_t blockSize,
                         kelm::job::PrintJobData& job) {
  kelm::tests::MemorySource source(input, blockSize);
  kelm::tests::MemoryOutput output;
  kelm::psrewrite::JobStream stream(source, output.stream());
  kelm::filter::copyPostScript(stream, job);
  return output.text();
}

}  // namespace

// The first byte is the size of a block (0: all at once), then come the job's options as on the
// filter's command line up to a zero byte, and the job's PostScript.
FUZZ_TARGET(copy_loop) {
  if (size == 0) return 0;
  const kelm::platform::FakePlatform platform;
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  const std::size_t end = std::min(text.find('\0'), text.size());
  const std::string options(text.substr(0, end));
  const std::string_view input = text.substr(std::min(end + 1, text.size()));
  auto job = kelm::tests::TestJob::parsed(options.c_str());
  kelm::job::decideCustomPaper(*job);
  kelm::job::decideOutputFace(*job);
  kelm::tests::settle(*job);
  const std::size_t blockSize = data[0] == 0 ? input.size() + 1 : data[0];
  if (copyInBlocks(input, blockSize, *job) != kelm::tests::referenceCopy(input, *job)) std::abort();
  return 0;
}
