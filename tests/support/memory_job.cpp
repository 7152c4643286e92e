// A job in memory, for tests.
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/memory_job.hpp"

#include <algorithm>
#include <cstdlib>

#include "job/ppd_calls.hpp"

namespace kelm::tests {

std::size_t MemorySource::read(std::span<char> room) {
  const std::size_t count = std::min({room.size(), bytes_.size(), blockSize_});
  std::copy_n(bytes_.begin(), count, room.begin());
  bytes_.remove_prefix(count);
  return count;
}

MemoryOutput::MemoryOutput() : stream_(open_memstream(&data_, &size_)) {}

MemoryOutput::~MemoryOutput() {
  std::fclose(stream_);
  std::free(data_);
}

std::string MemoryOutput::text() {
  std::fflush(stream_);
  return {data_, size_};
}

TestJob::TestJob(const Options& options, const char* ppdPath) {
  record_.title = "job";
  record_.userName = "user";
  for (const auto& [name, value] : options) {
    record_.numOptions =
        cupsAddOption(name.c_str(), value.c_str(), record_.numOptions, &record_.options);
  }
  if (ppdPath != nullptr) record_.ppd = job::r_ppdOpenFile(ppdPath);
  noteDialog();
}

TestJob TestJob::parsed(const char* options) {
  TestJob job;
  job->numOptions = cupsParseOptions(options, 0, &job->options);
  job.noteDialog();
  return job;
}

TestJob::TestJob(TestJob&& other) noexcept : record_(std::move(other.record_)) {
  other.record_.options = nullptr;
  other.record_.numOptions = 0;
  other.record_.ppd = nullptr;
}

TestJob::~TestJob() {
  cupsFreeOptions(record_.numOptions, record_.options);
  if (record_.ppd != nullptr) job::r_ppdClose(record_.ppd);
}

void TestJob::noteDialog() {
  std::string value;
  record_.isPrintPDE = job::getOptionValue(&record_, "PrintPDE", value);
}

}  // namespace kelm::tests
