// A job that is not printed: its options and its PPD, and the header that it would have.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "pjl/recorder.hpp"

namespace kelm::explain {

struct Option {
  std::string name;
  std::string value;

  bool operator==(const Option&) const = default;
};

// The first option of exactly this name, or null.
const Option* findOption(const std::vector<Option>& options, std::string_view name);

struct Request {
  ppd_file_t* ppd = nullptr;  // the queue's, borrowed; null when there is none
  std::vector<Option> options;
  int copies = 1;
  std::string title;

  bool isDialogJob() const { return findOption(options, "PrintPDE") != nullptr; }
};

// The options in `words`, written as for lp(1) and on the filter's command line.
std::vector<Option> parsedOptions(const std::vector<std::string>& words);

struct Outcome {
  std::vector<pjl::RecordedLine> header;
  std::vector<Option> options;  // as the header's writers saw them, after all stages before them
};

// Takes the request through the stages of the filter up to the header. Marks the request's choices
// in its PPD. With a step, only the lines of that step are written.
Outcome outcomeOf(const Request& request, const pjl::HeaderStep* step = nullptr);

// While it exists, answers from the operating system are asked for only once, and the stages'
// messages do not reach the system log: explaining a job runs the stages many times.
class QuietPlatform {
 public:
  QuietPlatform();
  ~QuietPlatform();
  QuietPlatform(const QuietPlatform&) = delete;
  QuietPlatform& operator=(const QuietPlatform&) = delete;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace kelm::explain
