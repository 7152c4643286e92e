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

// The jobs that a variable has an expectation for.
enum class Road { kBoth, kDialog, kPlain };
using enum Road;

// Checks the line on each of the roads.
template <class Variable>
void expectLine(const Variable& variable, Road road, const Options& options,
                const std::string& line) {
  if (road != kDialog) {
    EXPECT_EQ(plain(variable, options), line);
  }
  if (road != kPlain) {
    EXPECT_EQ(dialog(variable, options), line);
  }
}

// The name of a case (a variable on a road) among the parameters of a test.
template <class Case>
std::string caseName(const testing::TestParamInfo<Case>& info) {
  constexpr const char* kRoadNames[] = {"", "OfDialogJobs", "OfPlainJobs"};
  return info.param.name + kRoadNames[static_cast<int>(info.param.road)];
}

}  // namespace kelm::pjl
