// What the queue's PPD says of an option: its default choice, and a choice by its label.
// SPDX-License-Identifier: Apache-2.0
#include "job/ppd_choices.hpp"

#include <cstring>
#include <span>

#include "job/ppd_calls.hpp"

namespace kelm::job {
namespace {

const ppd_option_t* findOption(const PrintJobData* job, const char* keyword) {
  if (job == nullptr || job->ppd == nullptr) return nullptr;
  return r_ppdFindOption(job->ppd, keyword);
}

std::span<const ppd_choice_t> choicesOf(const ppd_option_t& option) {
  return {option.choices, static_cast<std::size_t>(option.num_choices)};
}

}  // namespace

const char* getDefaultValue(const PrintJobData* job, const char* keyword) {
  const ppd_option_t* option = findOption(job, keyword);
  return option == nullptr ? nullptr : option->defchoice;
}

const char* checkPPDKeywordWithLocalizeText(const PrintJobData* job, const char* keyword,
                                            const char* text) {
  const ppd_option_t* option = findOption(job, keyword);
  if (option == nullptr) return nullptr;
  for (const ppd_choice_t& choice : choicesOf(*option)) {
    if (std::strcmp(choice.text, text) == 0 || std::strcmp(choice.choice, text) == 0) {
      return choice.choice;
    }
  }
  return nullptr;
}

}  // namespace kelm::job
