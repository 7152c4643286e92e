// Standard options become the printer's own options.
// SPDX-License-Identifier: Apache-2.0
#include "stdoptions/standard_options.hpp"

#include <strings.h>

#include <cstring>
#include <string>

#include "base/number_text.hpp"
#include "job/ppd_calls.hpp"
#include "stdoptions/own_options.hpp"
#include "stdoptions/page_size.hpp"

namespace kelm::stdoptions {
namespace {

constexpr char kCopiesKey[] = "com.apple.print.PrintSettings.PMCopies..n.";
constexpr int kMostCopies = 9999;  // pstops' own limit where the PPD sets none

bool isOn(const char* value) {
  return value != nullptr &&
         (!strcasecmp(value, "true") || !strcasecmp(value, "on") || !strcasecmp(value, "yes"));
}

// Whether the client asks for copies in sets (RFC 8011, 5.2.4), as pstops understands it.
bool asksForSets(const job::PrintJobData& job) {
  const char* handling = cupsGetOption("multiple-document-handling", job.numOptions, job.options);
  if (handling != nullptr && strcasecmp(handling, "separate-documents-uncollated-copies") != 0) {
    return true;
  }
  return isOn(cupsGetOption("Collate", job.numOptions, job.options));
}

int mostCopies(const job::PrintJobData& job) {
  const ppd_attr_t* limit = job::r_ppdFindAttr(job.ppd, "cupsMaxCopies", nullptr);
  if (limit != nullptr && limit->value != nullptr) return base::leadingInteger(limit->value);
  return job.ppd->manual_copies != 0 ? 1 : kMostCopies;
}

// Whether CUPS sends the pages once for each copy instead of asking the printer for copies.
bool cupsRepeatsPages(const job::PrintJobData& job, int copies) {
  if (copies > mostCopies(job)) return true;
  if (!asksForSets(job)) return false;
  const ppd_choice_t* choice = job::r_ppdFindMarkedChoice(job.ppd, "Collate");
  const bool byPrinter =
      choice != nullptr && !strcasecmp(choice->choice, "True") && choice->option->conflicted == 0;
  return !byPrinter;
}

// The header asks for the copies, and CUPS' own request is removed: a printer may multiply the two.
void settleCopies(job::PrintJobData& job, int copies) {
  if (copies <= 1) return;
  const bool repeated = cupsRepeatsPages(job, copies);
  if (!repeated) job.copiesOfHeader = copies;
  job::setOption(job, kCopiesKey, std::to_string(repeated ? 1 : copies));
}

}  // namespace

bool standardOptionsApply(const job::PrintJobData& job) {
  if (job.ppd == nullptr || job.isPrintPDE || job::findJobOption(&job, "UpdatePPDOptions")) {
    return false;
  }
  const ppd_attr_t* attribute = job::r_ppdFindAttr(job.ppd, kAttribute, nullptr);
  return attribute != nullptr && attribute->value != nullptr &&
         std::strcmp(attribute->value, "True") == 0;
}

void settleOptions(job::PrintJobData& job, int copies) {
  if (!standardOptionsApply(job)) return;
  job.optionsSettled = true;
  settleCopies(job, copies);
  settleOwnOptions(job);
  settlePageSize(job);  // after the words of "media" are read
}

}  // namespace kelm::stdoptions
