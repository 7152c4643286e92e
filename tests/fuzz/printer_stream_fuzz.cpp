// Any bytes as a printer stream: the reader stays within its memory, reads all of them, and finds
// the same whatever the size of its blocks.
// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "explain/stream.hpp"
#include "platform/fake/fake_platform.hpp"
#include "tests/fuzz/fuzz_target.hpp"
#include "tests/support/memory_job.hpp"

namespace {

using kelm::tests::expect;

using kelm::explain::StreamReport;

StreamReport read(std::string_view bytes, std::size_t blockSize) {
  kelm::tests::MemorySource source(bytes, blockSize);
  return kelm::explain::readStream(source);
}

}  // namespace

FUZZ_TARGET(printer_stream) {
  const kelm::platform::FakePlatform platform;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const StreamReport whole = read(bytes, 1U << 20U);
  expect(whole.size == size);
  expect(whole.findings.size() <= 200 && whole.sections.size() <= 512);
  const StreamReport pieces = read(bytes, 1 + size % 7);
  expect(pieces.header.size() == whole.header.size());
  expect(pieces.sections.size() == whole.sections.size());
  expect(pieces.findings.size() == whole.findings.size());
  for (std::size_t i = 0; i < whole.findings.size(); ++i) {
    expect(pieces.findings[i].problem == whole.findings[i].problem);
    expect(pieces.findings[i].offset == whole.findings[i].offset);
  }
  return 0;
}
