// libcups leaks some texts of a PPD that has a keyword twice or ends too early, and some when it
// derives its cache from a PPD. A filter ends with its job, so the fuzz targets in which libcups
// reads a PPD ignore these leaks.
// SPDX-License-Identifier: Apache-2.0

extern "C" const char* __lsan_default_suppressions() {
  return "leak:_ppdOpen\nleak:_ppdCacheCreateWithPPD\n";
}
