// What a variable of the header writes for a job.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <variant>

#include "pjl/variables.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::pjl {

using tests::MemoryOutput;
using tests::TestJob;
using Options = TestJob::Options;

template <class Variable>
std::string written(const Variable& variable, TestJob& job) {
  MemoryOutput output;
  variable(output.stream(), *job);
  return output.text();
}

inline std::string written(const HeaderStep& step, TestJob& job) {
  return std::visit([&](const auto* variable) { return written(*variable, job); }, step);
}

// For a job without the maker's dialog.
template <class Variable>
std::string plain(const Variable& variable, const Options& options = {},
                  const char* ppdPath = nullptr) {
  TestJob job(options, ppdPath);
  return written(variable, job);
}

// For a job that came through the maker's dialog.
template <class Variable>
std::string dialog(const Variable& variable, Options options = {}, const char* ppdPath = nullptr) {
  options.emplace_back("PrintPDE", "1");
  TestJob job(options, ppdPath);
  return written(variable, job);
}

// The kinds of jobs that an expectation is for.
enum class JobKind { kBoth, kDialog, kPlain };
using enum JobKind;

// Checks the line for each of these kinds of jobs.
template <class Variable>
void expectLine(const Variable& variable, JobKind kind, const Options& options,
                const std::string& line) {
  if (kind != kDialog) {
    EXPECT_EQ(plain(variable, options), line);
  }
  if (kind != kPlain) {
    EXPECT_EQ(dialog(variable, options), line);
  }
}

// The name of a case (a variable and a kind of job) among the parameters of a test.
template <class Case>
std::string caseName(const testing::TestParamInfo<Case>& info) {
  constexpr const char* kKindNames[] = {"", "OfDialogJobs", "OfPlainJobs"};
  return info.param.name + kKindNames[static_cast<int>(info.param.kind)];
}

}  // namespace kelm::pjl
