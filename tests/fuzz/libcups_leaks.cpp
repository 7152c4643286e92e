// libcups forgets some texts of a PPD that states a keyword twice or ends too early, and of one
// from which it derives its cache. A filter ends with its job, so a fuzz target that has libcups
// read a PPD does not count them.
// SPDX-License-Identifier: Apache-2.0

extern "C" const char* __lsan_default_suppressions() {
  return "leak:_ppdOpen\nleak:_ppdCacheCreateWithPPD\n";
}
