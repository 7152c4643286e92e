// Values of standard options that CUPS and the filter do not understand.
// SPDX-License-Identifier: Apache-2.0
#include "explain/standard_remarks.hpp"

#include <cups/ppd.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>
#include <vector>

#include "explain/choice_remarks.hpp"
#include "explain/paper_remarks.hpp"
#include "explain/words.hpp"
#include "job/ppd_calls.hpp"
#include "job/text_fields.hpp"
#include "job/validators.hpp"
#include "stdoptions/standard_choices.hpp"
#include "stdoptions/standard_options.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::explain {
namespace {

// Whether the filter turns standard options into own ones in this job.
bool hasStandardOptions(const Request& request) {
  return request.ppd != nullptr && !request.isDialogJob() &&
         job::r_ppdFindAttr(request.ppd, stdoptions::kAttribute, nullptr) != nullptr;
}

// Finishings have numbers; 3 is none.
std::vector<std::string> finishingsOf(ppd_file_t* ppd) {
  std::vector<std::string> numbers = {"3"};
  for (const ppd_attr_t* attribute = ppdFindAttr(ppd, "cupsIPPFinishings", nullptr);
       attribute != nullptr; attribute = ppdFindNextAttr(ppd, "cupsIPPFinishings", nullptr)) {
    numbers.emplace_back(attribute->spec);
  }
  return numbers;
}

// The IPP name that CUPS gives a choice of the PPD: "face-down" for FaceDown.
std::string ippName(std::string_view choice) {
  std::string name;
  for (const char c : choice) {
    const bool isUpper = std::isupper(static_cast<unsigned char>(c)) != 0;
    if (isUpper && !name.empty()) name += '-';
    name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return name;
}

std::vector<std::string> outputBinsOf(const Request& request) {
  std::vector<std::string> bins;
  const ppd_option_t* option = job::r_ppdFindOption(request.ppd, "OutputBin");
  if (option == nullptr) return bins;
  for (const std::string& choice : choicesOf(*option)) bins.push_back(ippName(choice));
  return bins;
}

}  // namespace

std::vector<std::string> keywordsOfIpp(const Request& request, std::string_view name) {
  if (name == "sides") return {"one-sided", "two-sided-long-edge", "two-sided-short-edge"};
  if (name == "finishings") return finishingsOf(request.ppd);
  if (name == "output-bin") return outputBinsOf(request);
  std::vector<std::string> keywords;
  for (const stdoptions::StandardOption& standard : stdoptions::kStandardOptions) {
    if (standard.source != stdoptions::Source::kJob || name != standard.keyword) continue;
    for (const auto& row : standard.choices) {
      if (std::ranges::find(keywords, row.choice) == keywords.end())
        keywords.emplace_back(row.choice);
    }
  }
  return keywords;
}

namespace {

// CUPS reads the keywords of "sides" with regard to case, and those of other attributes without.
std::optional<Remark> unlessCaseCounts(const Request& request, const Option& option,
                                       const std::vector<std::string>& keywords) {
  const auto meant = std::ranges::find_if(
      keywords, [&](const std::string& keyword) { return sameWord(keyword, option.value); });
  if (meant == keywords.end() || *meant == option.value ||
      hasSameEffect(request, option, {option.name, *meant, option.giver})) {
    return std::nullopt;
  }
  return Remark{option, "is not a choice of this option", keywords, *meant};
}

}  // namespace

std::optional<Remark> remarkOnStandard(const Request& request, const Option& option) {
  if (!hasStandardOptions(request)) return std::nullopt;
  if (option.name == "media-size") {
    return Remark{option, "has an effect only as a member of media-col", {}, ""};
  }
  if (option.name == "media")
    return remarkOnMedia(request, option, keywordsOfIpp(request, option.name));
  if (option.name == "job-password") {
    const Option* encryption = findOption(request.options, "job-password-encryption");
    if (encryption != nullptr && encryption->value != "none") {
      return Remark{option, "is encrypted, but the printer needs the digits", {}, ""};
    }
    if (job::isValidateSecretNumString(option.value.c_str(), 1, job::kSecretNum.max)) {
      return std::nullopt;
    }
    return Remark{option,
                  "is not a PIN: a PIN has 1 to " + std::to_string(job::kSecretNum.max) + " digits",
                  {},
                  ""};
  }
  const std::vector<std::string> keywords = keywordsOfIpp(request, option.name);
  std::optional<Remark> remark = unlessKeywords(option, keywords);
  return remark ? remark : unlessCaseCounts(request, option, keywords);
}

std::optional<Remark> remarkOnFilters(const Option& option) {
  if (option.name == "number-up") return unlessKeywords(option, {"1", "2", "4", "6", "9", "16"});
  if (option.name == "print-scaling") {
    return unlessKeywords(option, {"auto", "auto-fit", "fill", "fit", "none"});
  }
  if (option.name == "raw" && !sameWord(option.value, "false")) {
    return Remark{option, "prints without the filter: the printer gets no header", {}, ""};
  }
  return std::nullopt;
}

}  // namespace kelm::explain
