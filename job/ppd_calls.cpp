// The PPD calls of libcups, in one place.
// SPDX-License-Identifier: Apache-2.0
#include "job/ppd_calls.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::job {

ppd_file_t* r_ppdOpenFile(const char* filename) { return ppdOpenFile(filename); }

void r_ppdClose(ppd_file_t* ppd) { ppdClose(ppd); }

int r_ppdLocalize(ppd_file_t* ppd) { return ppdLocalize(ppd); }

ppd_attr_t* r_ppdFindAttr(ppd_file_t* ppd, const char* name, const char* spec) {
  return ppdFindAttr(ppd, name, spec);
}

ppd_option_t* r_ppdFindOption(ppd_file_t* ppd, const char* keyword) {
  return ppdFindOption(ppd, keyword);
}

ppd_choice_t* r_ppdFindChoice(ppd_option_t* option, const char* choice) {
  return ppdFindChoice(option, choice);
}

int r_ppdMarkOption(ppd_file_t* ppd, const char* keyword, const char* choice) {
  return ppdMarkOption(ppd, keyword, choice);
}

void r_ppdMarkDefaults(ppd_file_t* ppd) { ppdMarkDefaults(ppd); }

ppd_choice_t* r_ppdFindMarkedChoice(ppd_file_t* ppd, const char* keyword) {
  return ppdFindMarkedChoice(ppd, keyword);
}

ppd_coption_t* r_ppdFindCustomOption(ppd_file_t* ppd, const char* keyword) {
  return ppdFindCustomOption(ppd, keyword);
}

ppd_cparam_t* r_ppdFirstCustomParam(ppd_coption_t* option) { return ppdFirstCustomParam(option); }

ppd_size_t* r_ppdPageSize(ppd_file_t* ppd, const char* name) { return ppdPageSize(ppd, name); }

const char* r_cupsGetPPD2(http_t* http, const char* name) { return cupsGetPPD2(http, name); }

int r_cupsMarkOptions(ppd_file_t* ppd, int numOptions, cups_option_t* options) {
  return cupsMarkOptions(ppd, numOptions, options);
}

}  // namespace kelm::job
