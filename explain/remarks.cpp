// What is wrong with a job's options before it is printed.
// SPDX-License-Identifier: Apache-2.0
#include "explain/remarks.hpp"

#include <cups/cups.h>
#include <strings.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "explain/choice_remarks.hpp"
#include "explain/conflicts.hpp"
#include "explain/media_col.hpp"
#include "explain/overruled.hpp"
#include "explain/paper_remarks.hpp"
#include "explain/row_facts.hpp"
#include "explain/standard_names.hpp"
#include "explain/standard_remarks.hpp"
#include "explain/words.hpp"
#include "job/ppd_calls.hpp"
#include "psrewrite/features.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::explain {
namespace {

constexpr char kDialogOnly[] = "has an effect only in jobs of the maker's dialog (PrintPDE)";

const ppd_option_t* ppdOption(const Request& request, const std::string& name) {
  return request.ppd == nullptr ? nullptr : job::r_ppdFindOption(request.ppd, name.c_str());
}

bool startsWithAny(std::string_view name, std::span<const std::string_view> fronts) {
  return std::ranges::any_of(fronts,
                             [&](std::string_view front) { return name.starts_with(front); });
}

// The standard name that this is in any letter case; null if it is none.
const std::string_view* standardName(std::string_view name) {
  const auto found = std::ranges::find_if(kStandardNames, [&](std::string_view standard) {
    return standard.size() == name.size() &&
           strncasecmp(standard.data(), name.data(), name.size()) == 0;
  });
  return found == std::end(kStandardNames) ? nullptr : &*found;
}

// CUPS' filters and clients add options of their own to a job.
bool isOfCups(const std::string& name) {
  constexpr std::string_view kFronts[] = {"com.apple.", "AP_", "date-time-at-", "time-at-",
                                          "Destination"};
  constexpr std::string_view kNames[] = {"PrintPDE", "UpdatePPDOptions"};
  if (startsWithAny(name, kFronts) || standardName(name) != nullptr ||
      std::ranges::find(kNames, name) != std::end(kNames)) {
    return true;
  }
  // An option that libcups knows has a type of its own; any other one becomes a name.
  ipp_t* const job = ippNewRequest(IPP_OP_CREATE_JOB);
  const ipp_attribute_t* attribute = cupsEncodeOption(job, IPP_TAG_JOB, name.c_str(), "a b");
  const bool known = attribute != nullptr &&
                     ippGetValueTag(const_cast<ipp_attribute_t*>(attribute)) != IPP_TAG_NAME;
  ippDelete(job);
  return known;
}

// The PPD's names of options, and the standard ones.
std::vector<std::string> knownNames(const Request& request) {
  std::vector<std::string> keywords(std::begin(kStandardNames), std::end(kStandardNames));
  if (request.ppd == nullptr) return keywords;
  for (const ppd_group_t& group :
       std::span(request.ppd->groups, static_cast<std::size_t>(request.ppd->num_groups))) {
    for (const ppd_option_t& option :
         std::span(group.options, static_cast<std::size_t>(group.num_options))) {
      keywords.emplace_back(option.keyword);
    }
  }
  return keywords;
}

// The maker's dialog sends its values in options of its own, such as QVGutterDistanceValue100.
bool isDialogOption(const std::string& name) {
  return rowOf(name, true) || (name.starts_with("QV") && name.find("Value") != std::string::npos);
}

std::optional<Remark> remarkOnName(const Request& request, const Option& option) {
  if (const auto row = rowOf(option.name, request.isDialogJob())) {
    return remarkOnTableChoice(request, option, *row);
  }
  // The print server's defaults can have any name.
  if (isOfCups(option.name) || option.giver == Giver::kQueue) return std::nullopt;
  if (isDialogOption(option.name)) {
    if (request.isDialogJob()) return std::nullopt;
    return Remark{option, kDialogOnly, {}, ""};
  }
  return Remark{
      option, "is not an option of this printer", {}, nearestOf(option.name, knownNames(request))};
}

// Whether an option of the PPD has no effect in this job although its value is not the default.
bool isIdle(const Request& request, const Option& option, const ppd_option_t& known) {
  if (request.isDialogJob() || option.value == known.defchoice) return false;
  if (rowOf(option.name, false)) return false;
  return std::ranges::any_of(psrewrite::features(), [&](const psrewrite::Feature& feature) {
    return feature.dialogOnly() && option.name == feature.keyword;
  });
}

std::optional<Remark> remarkOnSpelled(const Request& request, const Option& option) {
  const ppd_option_t* known = ppdOption(request, option.name);
  if (known == nullptr) {
    auto remark = remarkOnFilters(option);
    if (!remark) remark = remarkOnStandard(request, option);
    return remark ? std::move(remark) : remarkOnName(request, option);
  }
  if (isIdle(request, option, *known)) return Remark{option, kDialogOnly, {}, ""};
  if (auto remark = remarkOnPageRegion(option)) return remark;
  return remarkOnChoice(request, option, *known);
}

// lp(1) and cupsd read these, and know them only with exactly these capital letters.
bool needsItsLetters(std::string_view standard) {
  return standard.starts_with("job-") || standard == "copies" || standard == "media-col";
}

std::optional<Remark> remarkOn(const Request& request, const Option& option) {
  Option spelled = option;
  const ppd_option_t* known = ppdOption(request, option.name);
  const std::string_view* standard = standardName(option.name);
  if (known != nullptr) {
    spelled.name = known->keyword;
  } else if (standard != nullptr) {
    spelled.name = *standard;
  }
  if (spelled.name == option.name) return remarkOnSpelled(request, option);
  const bool isInPpd = known != nullptr;
  if ((!isInPpd && needsItsLetters(spelled.name)) || !hasSameEffect(request, option, spelled)) {
    return Remark{
        option,
        std::string("is spelled with other capital letters in ") + (isInPpd ? "the PPD" : "CUPS"),
        {},
        spelled.name};
  }
  Request other = request;
  std::ranges::replace(other.options, option, spelled);
  auto remark = remarkOnSpelled(other, spelled);
  if (remark) remark->option = option;
  return remark;
}

// The last number of copies counts.
std::optional<Remark> remarkOnCopies(const Request& request) {
  if (!request.overruledCopies) return std::nullopt;
  const std::string separator = request.copiesName.starts_with('-') ? " " : "=";
  return Remark{*request.overruledCopies,
                "has no effect, because " + request.copiesName + separator +
                    std::to_string(request.copies) + " comes after it",
                {},
                ""};
}

}  // namespace

std::vector<Remark> remarksOn(const Request& request) {
  std::vector<Remark> remarks;
  for (const Option& option : request.options) {
    auto remark = remarkOn(request, option);
    if (!remark) remark = remarkOnCustomPaper(request, option);
    if (remark) remarks.push_back(std::move(*remark));
  }
  if (auto remark = remarkOnPaper(request)) remarks.push_back(std::move(*remark));
  std::ranges::move(remarksOnMediaCol(request), std::back_inserter(remarks));
  if (auto remark = remarkOnCopies(request)) remarks.push_back(std::move(*remark));
  addOverruled(request, remarks);
  addConflicts(request, remarks);
  for (Remark& remark : remarks) {
    if (auto row = rowOf(remark.option.name, request.isDialogJob())) {
      remark.variables = std::move(row->variables);
    }
  }
  return remarks;
}

}  // namespace kelm::explain
