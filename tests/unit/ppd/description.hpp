// The queue's PPD as libcups reads it, for the tests of this directory.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kelm::tests {

// One choice of an option, with the code that pstops writes for it.
struct Choice {
  std::string name;
  std::string code;
  bool custom = false;  // the custom value; its name is "Custom"
};

struct Option {
  std::string keyword;
  std::string defaultChoice;
  std::vector<Choice> choices;  // the custom value last

  // The names of the choices, without the custom value.
  std::set<std::string> choiceNames() const;
  bool hasChoice(std::string_view name) const;
};

// The two models: the source, which has every option, and the default model made from it.
inline constexpr char kDialogModel[] = KELM_DIALOG_PPD;
inline constexpr char kDefaultModel[] = KELM_PPD;

// A model of the PPD. A file that libcups refuses has no options at all.
class Description {
 public:
  explicit Description(const char* path = kDialogModel);
  ~Description();
  Description(const Description&) = delete;
  Description& operator=(const Description&) = delete;

  ppd_file_t* ppd() const { return ppd_; }
  const std::vector<Option>& options() const { return options_; }
  // Null when there is no such option.
  const Option* find(std::string_view keyword) const;
  // The printer's own options, without paper sizes.
  std::vector<const Option*> printerOptions() const;

 private:
  ppd_file_t* ppd_;
  std::vector<Option> options_;
};

}  // namespace kelm::tests
