// The facts about a queue's printer that its PPD holds, with their labels.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/stored_settings.hpp"

#include "ctl/safe_text.hpp"
#include "ppdsettings/snmp_helper.hpp"
#include "ppdsettings/stored_facts.hpp"

namespace kelm::ctl {
namespace {

using Helper = ppdsettings::KelmSNMPHelper;

template <class Value>
using Reader = Value (*)(ppd_file_t*);

struct Row {
  const char* member;
  const char* label;
  std::variant<Reader<bool>, Reader<std::string>, Reader<std::vector<std::string>>,
               Reader<std::vector<std::int32_t>>>
      read;
  const ppdsettings::StoredFact* list;  // null unless a list of texts
  const char* numbersMember = nullptr;
};

constexpr const ppdsettings::StoredFact* listOf(std::string_view keyword) {
  for (const ppdsettings::StoredFact& fact : ppdsettings::kStoredFacts) {
    if (fact.keyword == keyword) return &fact;
  }
  return nullptr;
}

// clang-format off
constexpr Row kRows[] = {
    {"isCustomSnmpCommunity",     "SNMP community is custom",  Helper::isCustomSnmpCommunity_, nullptr},
    {"snmpCommunityName",         "SNMP community",            Helper::snmpCommunityName_, nullptr},
    {"isWakeOnLan",               "Wake-on-LAN",               Helper::isWakeOnLan_, nullptr},
    {"printerMacAddress",         "MAC address",               Helper::getPrinterMacAddress_, nullptr},
    {"isOverTheRouter",           "Beyond a router",           Helper::isOverTheRouter_, nullptr},
    {"printerIPAddress",          "IP address",                Helper::getPrinterIPAddress_, nullptr},
    {"ppdOptionsUpdated",         "Facts are complete",        Helper::isPPDOptionsUpdated_, nullptr},
    {"usePersonalFolder",         "Personal folder",           Helper::isPersonalFolderSelected_, nullptr},
    {"adminLoginModeEnabled",     "Administrator log-in",      Helper::isAdminLoginModeEnabled_, nullptr},
    {"sharedBoxes",               "Shared boxes",              Helper::getSharedBoxDetailsArray_, listOf("SharedBoxName"), "sharedBoxNumbers"},
    {"selectedSharedBoxes",       "Selected shared boxes",     Helper::getSelectedSharedBoxDetailsArray_, listOf("SelSharedBoxName")},
    {"selectedSharedBoxIndexes",  "Selected box indexes",      Helper::getSelectedSharedBoxIndexArray_, nullptr},
    {"barcodeAreas",              "Barcode areas",             Helper::getBarcodeAreaDefinitionDetailsArray_, listOf("BarcodeAreaDefName")},
    {"colorProfiles",             "Colour profiles",           Helper::getColorProfileDetailsArray_, listOf("ColorProfileName")},
    {"forms",                     "Forms",                     Helper::getFormDetailsArray_, listOf("PSFormName")},
};
// clang-format on

// The lists' readers leave no gaps. The numbers of the entries are found in the same way as the
// entries.
std::vector<int> numbersOf(const ppdsettings::StoredFact* list, ppd_file_t* ppd) {
  std::vector<int> numbers;
  for (int index = 0; list != nullptr && index <= list->lastIndex; ++index) {
    const std::string keyword = ppdsettings::entryKeyword(*list, index);
    if (!Helper::getDecodedPPDAttributeMaltiPartValueForName_ppdFile_(keyword.c_str(), ppd)
             .empty()) {
      numbers.push_back(index + 1);
    }
  }
  return numbers;
}

using Entries = std::vector<ReadableEntry>;

Entries entriesOf(const StoredSetting& /*setting*/, bool value) {
  return {{0, value ? "yes" : "no"}};
}

Entries entriesOf(const StoredSetting& /*setting*/, const std::string& text) {
  return {{0, text.empty() ? "(none)" : safeText(text)}};
}

Entries entriesOf(const StoredSetting& setting, const std::vector<std::string>& texts) {
  Entries entries;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    entries.push_back({setting.numbers.at(i), safeText(texts[i])});
  }
  return entries;
}

Entries entriesOf(const StoredSetting& /*setting*/, const std::vector<std::int32_t>& numbers) {
  Entries entries;
  for (const std::int32_t number : numbers) entries.push_back({0, std::to_string(number)});
  return entries;
}

}  // namespace

std::vector<StoredSetting> storedSettings(ppd_file_t* ppd) {
  std::vector<StoredSetting> settings;
  for (const Row& row : kRows) {
    settings.push_back({row.member, row.label, {}, numbersOf(row.list, ppd), row.numbersMember});
    std::visit([&](auto read) { settings.back().value = read(ppd); }, row.read);
  }
  return settings;
}

bool isList(const StoredSetting& setting) {
  return std::holds_alternative<std::vector<std::string>>(setting.value) ||
         std::holds_alternative<std::vector<std::int32_t>>(setting.value);
}

std::vector<ReadableEntry> readableEntries(const StoredSetting& setting) {
  return std::visit([&](const auto& value) { return entriesOf(setting, value); }, setting.value);
}

}  // namespace kelm::ctl
