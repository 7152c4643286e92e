// What a queue's PPD says about its printer, kept without the PPD itself.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/stored_state.hpp"

#include <span>

#include "ppdsettings/snmp_helper.hpp"

namespace kelm::ctl {
namespace {

bool isStored(std::string_view keyword) {
  for (const ppdsettings::StoredFact& fact : ppdsettings::kStoredFacts) {
    if (belongsTo(keyword, fact)) return true;
  }
  return false;
}

}  // namespace

bool belongsTo(std::string_view keyword, const ppdsettings::StoredFact& fact) {
  if (!isList(fact)) return keyword == fact.keyword;
  constexpr std::string_view kDigits = "0123456789";
  if (!keyword.starts_with(fact.keyword)) return false;
  keyword.remove_prefix(std::string_view(fact.keyword).size());
  const std::size_t digits = keyword.find_first_not_of(kDigits);
  if (digits == 0) return false;
  if (fact.parts == ppdsettings::kWhole) return digits == std::string_view::npos;
  return digits != std::string_view::npos && keyword.substr(digits).starts_with("_Part");
}

StoredLines storedLinesOf(ppd_file_t* ppd) {
  StoredLines lines;
  if (ppd == nullptr) return lines;
  for (const ppd_attr_t* attribute :
       std::span(ppd->attrs, static_cast<std::size_t>(ppd->num_attrs))) {
    if (!isStored(attribute->name)) continue;
    lines.emplace(attribute->name, attribute->value != nullptr ? attribute->value : "");
  }
  return lines;
}

StoredState storedStateOf(ppd_file_t* ppd) {
  return {ppdsettings::KelmSNMPHelper::snmpCommunityName_(ppd), storedLinesOf(ppd),
          storedSettings(ppd)};
}

}  // namespace kelm::ctl
