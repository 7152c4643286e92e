// kelmctl settings: what is stored about a queue's printer, for people and for programs.
// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <iomanip>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include "ctl/commands.hpp"
#include "ctl/exit_status.hpp"
#include "ctl/queue_ppd.hpp"
#include "ctl/safe_text.hpp"
#include "ctl/stored_settings.hpp"
#include "ppdsettings/snmp_helper.hpp"

namespace kelm::ctl {
namespace {

using Helper = ppdsettings::KelmSNMPHelper;

template <class Value>
using Reader = Value (*)(ppd_file_t*);

struct Setting {
  const char* member;  // of the JSON object
  const char* label;   // for people
  std::variant<Reader<bool>, Reader<std::string>, Reader<std::vector<std::string>>,
               Reader<std::vector<std::int32_t>>>
      read;
};

// clang-format off
constexpr Setting kSettings[] = {
    {"isCustomSnmpCommunity",     "SNMP community is custom",  Helper::isCustomSnmpCommunity_},
    {"snmpCommunityName",         "SNMP community",            Helper::snmpCommunityName_},
    {"isWakeOnLan",               "Wake-on-LAN",               Helper::isWakeOnLan_},
    {"printerMacAddress",         "MAC address",               Helper::getPrinterMacAddress_},
    {"isOverTheRouter",           "Beyond a router",           Helper::isOverTheRouter_},
    {"printerIPAddress",          "IP address",                Helper::getPrinterIPAddress_},
    {"ppdOptionsUpdated",         "Updated by the dialog",     Helper::isPPDOptionsUpdated_},
    {"usePersonalFolder",         "Personal folder",           Helper::isPersonalFolderSelected_},
    {"adminLoginModeEnabled",     "Administrator log-in",      Helper::isAdminLoginModeEnabled_},
    {"sharedBoxes",               "Shared boxes",              Helper::getSharedBoxDetailsArray_},
    {"selectedSharedBoxes",       "Selected shared boxes",     Helper::getSelectedSharedBoxDetailsArray_},
    {"selectedSharedBoxIndexes",  "Selected box indexes",      Helper::getSelectedSharedBoxIndexArray_},
    {"barcodeAreas",              "Barcode areas",             Helper::getBarcodeAreaDefinitionDetailsArray_},
    {"colorProfiles",             "Colour profiles",           Helper::getColorProfileDetailsArray_},
    {"forms",                     "Forms",                     Helper::getFormDetailsArray_},
};
// clang-format on

constexpr int kLabelWidth = 26;

std::string readable(bool value) { return value ? "yes" : "no"; }
std::string readable(const std::string& text) { return text.empty() ? "(none)" : safeText(text); }
std::string readable(std::int32_t number) { return std::to_string(number); }

template <class Value>
StoredSetting readableSetting(const char* label, const Value& value) {
  return {label, false, {readable(value)}};
}

template <class Entry>
StoredSetting readableSetting(const char* label, const std::vector<Entry>& entries) {
  StoredSetting setting{label, true, {}};
  for (const Entry& entry : entries) setting.values.push_back(readable(entry));
  return setting;
}

void printLine(std::ostream& out, const char* label, const std::string& text) {
  out << std::left << std::setw(kLabelWidth) << label << text << '\n';
}

// One line for each entry of a list, with the label on the first.
void printReadable(std::ostream& out, ppd_file_t* ppd) {
  for (const StoredSetting& setting : storedSettings(ppd)) {
    const char* label = setting.label;
    if (setting.values.empty()) printLine(out, label, "(none)");
    for (const std::string& value : setting.values) {
      printLine(out, label, value);
      label = "";
    }
  }
}

void printJson(std::ostream& out, ppd_file_t* ppd) {
  nlohmann::ordered_json object;
  for (const Setting& setting : kSettings) {
    std::visit([&](auto read) { object[setting.member] = read(ppd); }, setting.read);
  }
  out << object.dump(2) << '\n';
}

struct Arguments {
  std::optional<std::string> queue;
  std::optional<std::string> file;
  bool json = false;
};

int showSettings(const Arguments& arguments, const Console& console) {
  const OpenedPpd opened =
      arguments.file ? openPpdFile(*arguments.file) : openQueuePpd(arguments.queue.value_or(""));
  if (opened.ppd == nullptr) {
    console.err << "kelmctl: " << opened.problem << '\n';
    return kExitFailed;
  }
  (arguments.json ? printJson : printReadable)(console.out, opened.ppd.get());
  return kExitDone;
}

}  // namespace

std::vector<StoredSetting> storedSettings(ppd_file_t* ppd) {
  std::vector<StoredSetting> settings;
  for (const Setting& row : kSettings) {
    settings.push_back(
        std::visit([&](auto read) { return readableSetting(row.label, read(ppd)); }, row.read));
  }
  return settings;
}

Action declareSettings(ArgumentList& list) {
  auto arguments = std::make_shared<Arguments>();
  list.add("QUEUE", arguments->queue, "The queue, as lpstat -v names it")
      .valueName("")
      .excludes(
          list.add("--ppd", arguments->file, "A PPD file instead of a queue's").valueName("FILE"));
  list.addFlag("--json", arguments->json, "One JSON object, for programs");
  list.require("QUEUE or --ppd FILE", [arguments] { return arguments->queue || arguments->file; });
  return [arguments](const Console& console) { return showSettings(*arguments, console); };
}

}  // namespace kelm::ctl
