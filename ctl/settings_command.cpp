// kelmctl settings: what is stored about a queue's printer, for people and for programs.
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
    {"isOverTheRouter",           "Behind a router",           Helper::isOverTheRouter_},
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

void printLine(std::ostream& out, const char* label, const std::string& text) {
  out << std::left << std::setw(kLabelWidth) << label << text << '\n';
}

template <class Value>
void printSetting(std::ostream& out, const char* label, const Value& value) {
  printLine(out, label, readable(value));
}

// One line for each entry, with the label on the first.
template <class Entry>
void printSetting(std::ostream& out, const char* label, const std::vector<Entry>& entries) {
  if (entries.empty()) printLine(out, label, "(none)");
  for (const Entry& entry : entries) {
    printLine(out, label, readable(entry));
    label = "";
  }
}

void printReadable(std::ostream& out, ppd_file_t* ppd) {
  for (const Setting& setting : kSettings) {
    std::visit([&](auto read) { printSetting(out, setting.label, read(ppd)); }, setting.read);
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

void requireSource(const Arguments& arguments) {
  if (!arguments.queue && !arguments.file) throw CLI::RequiredError("QUEUE or --ppd FILE");
}

}  // namespace

Action declareSettings(CLI::App& app) {
  auto arguments = std::make_shared<Arguments>();
  app.add_option("QUEUE", arguments->queue, "The queue, as lpstat -v names it")
      ->type_name("")
      ->excludes(app.add_option("--ppd", arguments->file, "A PPD file instead of a queue's")
                     ->type_name("FILE"));
  app.add_flag("--json", arguments->json, "One JSON object, for programs");
  app.parse_complete_callback([arguments] { requireSource(*arguments); });
  return [arguments](const Console& console) { return showSettings(*arguments, console); };
}

}  // namespace kelm::ctl
