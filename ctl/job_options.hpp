// The options of an update job.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/cups.h>

#include <vector>

#include "ctl/update_lines.hpp"

namespace kelm::ctl {

class JobOptions {
 public:
  explicit JobOptions(const std::vector<UpdateLine>& lines) {
    add("UpdatePPDOptions", "1");
    for (const UpdateLine& line : lines) add(line.keyword.c_str(), line.value.c_str());
  }
  ~JobOptions() { cupsFreeOptions(count_, options_); }
  JobOptions(const JobOptions&) = delete;
  JobOptions& operator=(const JobOptions&) = delete;

  int count() const { return count_; }
  cups_option_t* options() const { return options_; }

 private:
  void add(const char* name, const char* value) {
    count_ = cupsAddOption(name, value, count_, &options_);
  }

  int count_ = 0;
  cups_option_t* options_ = nullptr;
};

}  // namespace kelm::ctl
