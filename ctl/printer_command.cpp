// kelmctl printer: what a printer says about itself.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <iomanip>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "ctl/commands.hpp"
#include "ctl/exit_status.hpp"
#include "ctl/printer_facts.hpp"
#include "ctl/safe_text.hpp"

namespace kelm::ctl {
namespace {

using Json = nlohmann::ordered_json;
using Names = std::optional<std::vector<std::string>>;

struct Arguments {
  std::string address;
  std::string community = "public";
  bool json = false;
};

Json jsonOf(const Names& names) { return names ? Json(*names) : Json(nullptr); }

Json jsonOf(const std::optional<std::vector<SharedBox>>& boxes) {
  if (!boxes) return nullptr;
  Json list = Json::array();
  for (const SharedBox& box : *boxes) list.push_back({{"state", box.state}, {"name", box.name}});
  return list;
}

Json jsonOf(const PrinterFacts& facts) {
  return {
      {"sharedBoxCount", facts.sharedBoxCount},
      {"sharedBoxes", jsonOf(facts.sharedBoxes)},
      {"forms", jsonOf(facts.forms)},
      {"barcodeAreas", jsonOf(facts.barcodeAreas)},
      {"colorProfiles", jsonOf(facts.colorProfiles)},
      {"adminLoginModeEnabled", facts.adminLoginModeEnabled},
      {"sleepMode", facts.sleepMode},
      {"sleepModeStatus", facts.sleepModeStatus},
      {"macAddress", facts.macAddress ? Json(*facts.macAddress) : Json(nullptr)},
  };
}

constexpr char kNotGiven[] = "not given by the printer";

std::ostream& row(std::ostream& out, const char* title) {
  return out << std::left << std::setw(22) << title;
}

void writeEntry(std::ostream& out, std::size_t number, std::string_view name) {
  out << "  " << std::right << std::setw(3) << number << "  " << safeText(name) << '\n';
}

void writeNames(std::ostream& out, const char* title, const Names& names) {
  if (!names) {
    row(out, title) << kNotGiven << '\n';
    return;
  }
  row(out, title) << names->size() << '\n';
  for (std::size_t i = 0; i < names->size(); ++i) writeEntry(out, i + 1, (*names)[i]);
}

void writeSharedBoxes(std::ostream& out, const PrinterFacts& facts) {
  if (!facts.sharedBoxes) {
    row(out, "Shared boxes") << kNotGiven << '\n';
    return;
  }
  const auto& boxes = *facts.sharedBoxes;
  const auto used =
      std::count_if(boxes.begin(), boxes.end(), [](const SharedBox& box) { return box.inUse(); });
  row(out, "Shared boxes") << used << " of " << boxes.size() << " in use\n";
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    if (boxes[i].inUse()) writeEntry(out, i + 1, boxes[i].name);
  }
}

void writeSleepMode(std::ostream& out, const PrinterFacts& facts) {
  row(out, "Sleep mode") << (facts.sleepMode < 0 ? kNotGiven : std::to_string(facts.sleepMode))
                         << '\n';
}

void writeTable(std::ostream& out, const PrinterFacts& facts) {
  row(out, "MAC address") << (facts.macAddress ? safeText(*facts.macAddress) : kNotGiven) << '\n';
  writeSleepMode(out, facts);
  row(out, "Administrator log-in") << (facts.adminLoginModeEnabled ? "on" : "off") << '\n';
  writeSharedBoxes(out, facts);
  writeNames(out, "Forms", facts.forms);
  writeNames(out, "Barcode areas", facts.barcodeAreas);
  writeNames(out, "Colour profiles", facts.colorProfiles);
}

int run(const Arguments& arguments, const Console& console) {
  const PrinterFacts facts = askPrinter(arguments.address, arguments.community, console);
  if (arguments.json) {
    console.out << jsonOf(facts).dump(2) << '\n';
  } else if (facts.answered) {
    writeTable(console.out, facts);
  }
  if (facts.answered) return kExitDone;
  console.err << "kelmctl: " << noAnswerMessage(facts, arguments.address, arguments.community)
              << '\n';
  return kExitFailed;
}

}  // namespace

Action declarePrinter(ArgumentList& list) {
  auto arguments = std::make_shared<Arguments>();
  list.add("ADDRESS", arguments->address, "The printer's IP address or host name")
      .required()
      .valueName("")
      .check(addressProblem);
  list.add("--community", arguments->community, "The printer's SNMP community")
      .valueName("NAME")
      .showDefault();
  list.addFlag("--json", arguments->json, "One JSON object, for programs");
  return [arguments](const Console& console) { return run(*arguments, console); };
}

}  // namespace kelm::ctl
