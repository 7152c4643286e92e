// A job in memory, for tests: options, input bytes and output bytes without a process.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/byte_source.hpp"
#include "job/print_job.hpp"

namespace kelm::tests {

// Gives `bytes` in reads of at most `blockSize`.
class MemorySource final : public base::ByteSource {
 public:
  explicit MemorySource(std::string_view bytes, std::size_t blockSize = 1U << 20U)
      : bytes_(bytes), blockSize_(blockSize) {}
  std::size_t read(std::span<char> room) override;

 private:
  std::string_view bytes_;
  std::size_t blockSize_;
};

// A stream whose bytes are in memory.
class MemoryOutput {
 public:
  MemoryOutput();
  ~MemoryOutput();
  MemoryOutput(const MemoryOutput&) = delete;
  MemoryOutput& operator=(const MemoryOutput&) = delete;

  std::FILE* stream() { return stream_; }
  // Everything written so far.
  std::string text();

 private:
  char* data_ = nullptr;
  std::size_t size_ = 0;
  std::FILE* stream_ = nullptr;
};

// A record with the given options, without a PPD unless one is named; freed with the object.
class TestJob {
 public:
  using Options = std::vector<std::pair<std::string, std::string>>;

  explicit TestJob(const Options& options = {}, const char* ppdPath = nullptr);
  // `options` as CUPS writes them on the filter's command line.
  static TestJob parsed(const char* options);
  ~TestJob();
  TestJob(TestJob&& other) noexcept;
  TestJob(const TestJob&) = delete;
  TestJob& operator=(const TestJob&) = delete;

  job::PrintJobData& operator*() { return record_; }
  job::PrintJobData* operator->() { return &record_; }

 private:
  void noteDialog();

  job::PrintJobData record_;
};

}  // namespace kelm::tests
