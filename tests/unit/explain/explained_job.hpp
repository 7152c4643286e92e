// An explained job for tests, with a PPD of tests/ppds and a fake operating system.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "explain/explanation.hpp"
#include "job/ppd_calls.hpp"
#include "platform/fake/fake_platform.hpp"

namespace kelm::tests {

class ExplainedJob {
 public:
  // `words` are options as lp(1) takes them.
  explicit ExplainedJob(const std::vector<std::string>& words, int copies = 1)
      : ppd_(job::r_ppdOpenFile(KELM_PPDS_DIR "/explain.ppd")),
        explanation(explain::explained({ppd_, explain::parsedOptions(words), copies, "report"})) {}
  ~ExplainedJob() { job::r_ppdClose(ppd_); }
  ExplainedJob(const ExplainedJob&) = delete;
  ExplainedJob& operator=(const ExplainedJob&) = delete;

  // The line of a variable; an empty one when there is none.
  explain::Line line(const std::string& variable) const {
    for (const explain::Line& line : explanation.lines) {
      if (line.variable == variable) return line;
    }
    return {};
  }

 private:
  platform::FakePlatform platform_;
  ppd_file_t* ppd_;

 public:
  const explain::Explanation explanation;
};

}  // namespace kelm::tests
