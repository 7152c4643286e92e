// The PPD calls of libcups, in one place: each passes its arguments unchanged to the libcups
// function of the same name without the prefix and returns its result (CUPS API: ppd.h).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/cups.h>
#include <cups/ppd.h>

namespace kelm::job {

ppd_file_t* r_ppdOpenFile(const char* filename);
void r_ppdClose(ppd_file_t* ppd);
int r_ppdLocalize(ppd_file_t* ppd);
ppd_attr_t* r_ppdFindAttr(ppd_file_t* ppd, const char* name, const char* spec);
ppd_option_t* r_ppdFindOption(ppd_file_t* ppd, const char* keyword);
ppd_choice_t* r_ppdFindChoice(ppd_option_t* option, const char* choice);
int r_ppdMarkOption(ppd_file_t* ppd, const char* keyword, const char* choice);
void r_ppdMarkDefaults(ppd_file_t* ppd);
ppd_choice_t* r_ppdFindMarkedChoice(ppd_file_t* ppd, const char* keyword);
ppd_coption_t* r_ppdFindCustomOption(ppd_file_t* ppd, const char* keyword);
ppd_cparam_t* r_ppdFirstCustomParam(ppd_coption_t* option);
ppd_size_t* r_ppdPageSize(ppd_file_t* ppd, const char* name);
const char* r_cupsGetPPD2(http_t* http, const char* name);
int r_cupsMarkOptions(ppd_file_t* ppd, int numOptions, cups_option_t* options);

}  // namespace kelm::job
