// kelmctl printer: what a printer says about itself.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <chrono>
#include <iomanip>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "ctl/commands.hpp"
#include "ctl/device_address.hpp"
#include "ctl/exit_status.hpp"
#include "ctl/facts_transfer.hpp"
#include "ctl/interruption.hpp"
#include "ctl/json.hpp"
#include "ctl/message.hpp"
#include "ctl/printer_facts.hpp"
#include "ctl/printer_queries.hpp"
#include "ctl/safe_text.hpp"
#include "ctl/terminal.hpp"
#include "snmp/bracketed_address.hpp"

namespace kelm::ctl {
namespace {

using Names = std::optional<std::vector<std::string>>;

constexpr auto kTurn = std::chrono::milliseconds(100);
// Each printer needs a socket, and a process may have 1024 descriptors.
constexpr unsigned kMostAtATime = 900;
constexpr int kCouldNotAsk = 1;  // PrinterFacts::sleepModeStatus

struct Arguments {
  std::vector<std::string> addresses;
  std::string community = "public";
  unsigned jobs = 500;
  bool json = false;
  bool quiet = false;
};

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
      {"forms", facts.forms},
      {"barcodeAreas", facts.barcodeAreas},
      {"colorProfiles", facts.colorProfiles},
      {"adminLoginModeEnabled", facts.adminLoginModeEnabled},
      {"sleepMode", facts.sleepMode},
      {"sleepModeStatus", facts.sleepModeStatus},
      {"macAddress", facts.macAddress},
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

void writeAdminLogin(std::ostream& out, const PrinterFacts& facts) {
  const std::optional<bool>& mode = facts.adminLoginModeEnabled;
  row(out, "Administrator log-in") << (mode ? (*mode ? "on" : "off") : kNotGiven) << '\n';
}

void writeTable(std::ostream& out, const PrinterFacts& facts) {
  row(out, "MAC address") << (facts.macAddress ? safeText(*facts.macAddress) : kNotGiven) << '\n';
  writeSleepMode(out, facts);
  writeAdminLogin(out, facts);
  writeSharedBoxes(out, facts);
  writeNames(out, "Forms", facts.forms);
  writeNames(out, "Barcode areas", facts.barcodeAreas);
  writeNames(out, "Colour profiles", facts.colorProfiles);
}

// The addresses that no printer can have are those that the wake-up service refuses. A host name is
// looked up later.
std::string problemOf(const std::string& address) {
  std::string problem = addressProblem(address);
  if (!problem.empty()) return problem;
  return impossibleAddressProblem(address, snmp::unbracketed(address), Loopback::kRefused);
}

int showOne(const Arguments& arguments, const Console& console) {
  const std::string& address = arguments.addresses.front();
  const std::string host = snmp::unbracketed(address);
  const std::string problem =
      impossibleAddressProblem(host, addressOfHost(host), Loopback::kRefused);
  if (!problem.empty()) return fail(console, problem);
  const PrinterFacts facts = askPrinter(address, arguments.community, Incomplete::kAbsent, console);
  if (arguments.json) {
    console.out << textOf(jsonOf(facts), JsonLayout::kIndented) << '\n';
  } else if (facts.answered && !arguments.quiet) {
    writeTable(console.out, facts);
  }
  if (facts.answered) return kExitDone;
  return fail(console, noAnswerMessage(facts, address, arguments.community));
}

// Nothing for a printer whose questions were not finished.
std::vector<std::optional<AskedPrinter>> askMany(const Arguments& arguments,
                                                 const Console& console) {
  const Interruption interruption;
  const auto& addresses = arguments.addresses;
  std::vector<std::optional<AskedPrinter>> answers(addresses.size());
  PrinterQueries printers(arguments.jobs, console);
  ProgressLine progress(console);
  std::size_t next = 0;
  std::size_t over = 0;
  while ((next < addresses.size() || !printers.isIdle()) && !Interruption::isWanted()) {
    for (; next < addresses.size() && !printers.isFull(); ++next) {
      printers.start(
          {{}, addresses[next], arguments.community, Incomplete::kAbsent, Loopback::kRefused},
          [&answers, &over, index = next](std::optional<AskedPrinter> printer) {
            answers[index] = std::move(printer);
            ++over;
          });
    }
    progress.show(std::to_string(over) + " of " + std::to_string(addresses.size()) +
                  " printers finished");
    printers.wait(kTurn);
  }
  return answers;
}

// What is known of a printer whose questions were not finished.
AskedPrinter notAsked(const std::string& address) {
  AskedPrinter printer{address, {}, {}};
  printer.facts.sleepModeStatus = kCouldNotAsk;
  return printer;
}

void writeJsonLine(const AskedPrinter& printer, std::ostream& out) {
  Json object{{"address", printer.address}};
  object.update(jsonOf(printer.facts));
  out << textOf(object, JsonLayout::kOneLine) << '\n';
}

int showMany(const Arguments& arguments, const Console& console) {
  std::size_t answered = 0;
  std::size_t index = 0;
  for (const auto& printer : askMany(arguments, console)) {
    const std::string& address = arguments.addresses[index++];
    if (!printer) {
      if (arguments.json) writeJsonLine(notAsked(address), console.out);
      complain(console, "the printer \"" + address + "\" was not asked everything");
      continue;
    }
    if (printer->facts.answered) ++answered;
    if (arguments.json) writeJsonLine(*printer, console.out);
    if (!printer->facts.answered) {
      complain(console, printer->refusal.empty()
                            ? noAnswerMessage(printer->facts, address, arguments.community)
                            : printer->refusal);
    } else if (!arguments.json && !arguments.quiet) {
      console.out << address << '\n';
      writeTable(console.out, printer->facts);
      console.out << '\n';
    }
  }
  if (!arguments.json && !arguments.quiet) {
    console.out << answered << " of " << arguments.addresses.size() << " printers answer\n";
  }
  if (answered == arguments.addresses.size()) return kExitDone;
  return answered == 0 ? kExitFailed : kExitPartly;
}

}  // namespace

Action declarePrinter(ArgumentList& list) {
  auto arguments = std::make_shared<Arguments>();
  list.add("ADDRESS", arguments->addresses, "The printers' IP addresses or host names")
      .required()
      .valueName("")
      .check(problemOf);
  list.add("--community", arguments->community, "The printers' SNMP community")
      .valueName("NAME")
      .showDefault();
  list.addNumber("--jobs", arguments->jobs, 1, kMostAtATime, "Printers to ask at a time (500)");
  list.addFlag("--json", arguments->json, "One JSON object for each printer, for programs");
  list.addFlag("--quiet", arguments->quiet, "Show only the printers that do not answer");
  return [arguments](const Console& console) {
    const Console shown = arguments->quiet ? withoutProgress(console) : console;
    return (arguments->addresses.size() == 1 ? showOne : showMany)(*arguments, shown);
  };
}

}  // namespace kelm::ctl
