// A job that is not printed: its options and its PPD, and the header that it would have.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pjl/recorder.hpp"

namespace kelm::explain {

// Who gave an option to a job.
enum class Giver {
  kJob,           // the user, with the job
  kUserDefaults,  // ~/.cups/lpoptions
  kHostDefaults,  // lpoptions in CUPS' configuration directory
  kQueue,         // the print server's default for the queue
};

struct Option {
  std::string name;
  std::string value;
  Giver giver = Giver::kJob;

  // The same choice, from any source.
  bool operator==(const Option& other) const { return name == other.name && value == other.value; }
};

// The first option of exactly this name, or null.
const Option* findOption(const std::vector<Option>& options, std::string_view name);

struct Request {
  ppd_file_t* ppd = nullptr;  // the queue's, borrowed; null when there is none
  std::vector<Option> options;
  int copies = 1;
  std::string title;
  Giver copiesGiver = Giver::kJob;
  std::string copiesName = "-n";               // the option that sets the copies, as typed
  std::optional<Option> overruledCopies = {};  // the option for another number

  bool isDialogJob() const { return findOption(options, "PrintPDE") != nullptr; }
};

// Takes the number of copies from an option "copies", because CUPS keeps the number apart from the
// options. If the request `hasCopies`, the last of the two wins, as for lp(1). Returns whether the
// job has a number of copies.
bool takeCopies(Request& request, bool hasCopies, bool optionIsLast);

// Adds the defaults that the job's own options do not name, as lp(1) does. A default number of
// copies counts unless `hasCopies`.
void addDefaults(Request& request, const std::vector<Option>& defaults, bool hasCopies);

// The options in `words`, written as for lp(1) and on the filter's command line.
std::vector<Option> parsedOptions(const std::vector<std::string>& words);

struct Outcome {
  std::vector<pjl::RecordedLine> header;
  std::vector<Option> options;  // as the header's writers saw them, after all stages before them
};

// Takes the request through the stages of the filter up to the header. Marks the request's choices
// in its PPD. With a step, only the lines of that step are written.
Outcome outcomeOf(const Request& request, const pjl::HeaderStep* step = nullptr);

// Explaining a job runs the stages many times. While this object exists, the operating system is
// asked only once for each answer, and the stages' messages do not reach the system log.
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
