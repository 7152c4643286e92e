// A job that is not printed: its options and its PPD, and the header that it would have.
// SPDX-License-Identifier: Apache-2.0
#include "explain/request.hpp"

#include <strings.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

#include "job/job_setup.hpp"
#include "platform/platform.hpp"
#include "stdoptions/standard_options.hpp"

namespace kelm::explain {
namespace {

class CupsOptions {
 public:
  CupsOptions() = default;
  ~CupsOptions() { cupsFreeOptions(count, first); }
  CupsOptions(const CupsOptions&) = delete;
  CupsOptions& operator=(const CupsOptions&) = delete;

  int count = 0;
  cups_option_t* first = nullptr;
};

std::vector<Option> listed(int count, const cups_option_t* options) {
  std::vector<Option> list;
  list.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    list.push_back({options[i].name, options[i].value == nullptr ? "" : options[i].value});
  }
  return list;
}

class KnownComputer final : public platform::ComputerName {
 public:
  explicit KnownComputer(std::string name) : name_(std::move(name)) {}
  std::string get() override { return name_; }

 private:
  std::string name_;
};

class KnownUser final : public platform::ConsoleUser {
 public:
  explicit KnownUser(std::string name) : name_(std::move(name)) {}
  std::string name() override { return name_; }

 private:
  std::string name_;
};

class SilentLog final : public platform::SystemLog {
 public:
  void error(const std::string& /*message*/) override {}
};

}  // namespace

const Option* findOption(const std::vector<Option>& options, std::string_view name) {
  const auto option =
      std::ranges::find_if(options, [&](const Option& one) { return one.name == name; });
  return option == options.end() ? nullptr : &*option;
}

std::vector<Option> parsedOptions(const std::vector<std::string>& words) {
  CupsOptions parsed;
  for (const std::string& word : words) {
    parsed.count = cupsParseOptions(word.c_str(), parsed.count, &parsed.first);
  }
  return listed(parsed.count, parsed.first);
}

void addDefaults(Request& request, const std::vector<Option>& defaults, bool hasCopies) {
  for (const Option& option : defaults) {
    const auto isSame = [&](const Option& own) {
      return strcasecmp(own.name.c_str(), option.name.c_str()) == 0;
    };
    if (option.name == "copies") {
      if (hasCopies) continue;
      request.copies = std::max(std::atoi(option.value.c_str()), 1);
      request.copiesGiver = option.giver;
    } else if (std::ranges::none_of(request.options, isSame)) {
      request.options.push_back(option);
    }
  }
}

Outcome outcomeOf(const Request& request, const pjl::HeaderStep* step) {
  CupsOptions options;
  for (const Option& option : request.options) {
    options.count =
        cupsAddOption(option.name.c_str(), option.value.c_str(), options.count, &options.first);
  }
  job::PrintJobData job;
  job.title = request.title.c_str();
  job.ppd = request.ppd;
  job.numOptions = options.count;
  job.options = options.first;
  job::completePrintJobData(job);
  stdoptions::settleOptions(job, request.copies);
  job::decideCustomPaper(job);
  job::decideOutputFace(job);
  Outcome outcome{step == nullptr ? pjl::recordHeader(job) : pjl::recordStep(job, *step),
                  listed(job.numOptions, job.options)};
  options.count = job.numOptions;
  options.first = job.options;
  return outcome;
}

struct QuietPlatform::Parts {
  KnownComputer computer{platform::platform().computerName->get()};
  KnownUser user{platform::platform().consoleUser->name()};
  SilentLog log;
  platform::Platform set = platform::platform();
  std::optional<platform::ScopedPlatform> scope;
};

QuietPlatform::QuietPlatform() : parts_(std::make_unique<Parts>()) {
  parts_->set.computerName = &parts_->computer;
  parts_->set.consoleUser = &parts_->user;
  parts_->set.systemLog = &parts_->log;
  parts_->scope.emplace(parts_->set);
}

QuietPlatform::~QuietPlatform() = default;

}  // namespace kelm::explain
