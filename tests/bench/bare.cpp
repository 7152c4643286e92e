// The minimum that a filter costs: a program that links libcups and ends. With a PPD's path as its
// argument, it first opens, marks and localises the PPD.
// SPDX-License-Identifier: Apache-2.0
#include <cups/ppd.h>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

int main(int argc, char* argv[]) {
  if (argc < 2) return 0;
  ppd_file_t* ppd = ppdOpenFile(argv[1]);
  if (ppd == nullptr) return 1;
  ppdMarkDefaults(ppd);
  ppdLocalize(ppd);
  return 0;
}
