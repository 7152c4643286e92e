// Everything that a printer says about itself.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ctl/subcommand.hpp"

namespace kelm::ctl {

struct SharedBox {
  std::string state;  // a decimal number; empty when the box was left out
  std::string name;

  bool inUse() const { return state == "1"; }
  bool isLeftOut() const { return state.empty(); }
};

// What the printer does not give, or does not give completely, is absent.
struct PrinterFacts {
  bool answered = false;    // if not, the other members keep these values
  int sleepModeStatus = 0;  // 0: the printer answered; 1: it could not be asked; 2: no answer
  std::int32_t sleepMode = -1;
  std::optional<std::string> macAddress;
  std::optional<bool> adminLoginModeEnabled;
  std::optional<int> sharedBoxCount;                  // 100 or 30
  std::optional<std::vector<SharedBox>> sharedBoxes;  // box n at n - 1, in use or not
  std::optional<std::vector<std::string>> forms;
  std::optional<std::vector<std::string>> barcodeAreas;
  std::optional<std::vector<std::string>> colorProfiles;
  std::vector<std::string> leftOut;  // entries that cannot be read, such as "shared box 17"

  // Whether the device is a KELM printer: other devices may answer too, but know none of these
  // facts.
  bool knowsAnything() const {
    return macAddress || sleepMode != -1 || sharedBoxes || forms || barcodeAreas || colorProfiles;
  }
};

// Calls `visit` for each member, always in the same order.
template <class Visitor, class Box>
requires std::same_as<std::remove_const_t<Box>, SharedBox>
void eachMember(Visitor& visit, Box& box) {
  visit(box.state);
  visit(box.name);
}

template <class Visitor, class Facts>
requires std::same_as<std::remove_const_t<Facts>, PrinterFacts>
void eachMember(Visitor& visit, Facts& facts) {
  visit(facts.answered);
  visit(facts.sleepModeStatus);
  visit(facts.sleepMode);
  visit(facts.macAddress);
  visit(facts.adminLoginModeEnabled);
  visit(facts.sharedBoxCount);
  visit(facts.sharedBoxes);
  visit(facts.forms);
  visit(facts.barcodeAreas);
  visit(facts.colorProfiles);
  visit(facts.leftOut);
}

// How to treat a list that the printer does not give completely.
enum class Incomplete {
  kAbsent,      // it is absent
  kKeepTheRest  // it is asked for in smaller steps; shared boxes that cannot be read are left out
};

// Asks the printer at `address` (an IPv4 or IPv6 address or a host name) for everything; a printer
// that does not answer the first two questions is not asked the others, so that a wrong address
// costs seconds and not minutes. Shows a progress line on a terminal.
PrinterFacts askPrinter(const std::string& address, const std::string& community,
                        Incomplete incomplete, const Console& console);

// What is wrong with `address` as an argument; empty when nothing is. The SNMP library would read
// some texts as transports other than UDP.
std::string addressProblem(const std::string& address);

// This computer's own addresses: no printer has them, but a printer's port may be forwarded to one.
enum class Loopback { kRefused, kAccepted };

// Why no printer is asked at the numeric address that `host` (a host name or an address) leads to;
// empty when one may be.
std::string impossibleAddressProblem(const std::string& host, const std::string& address,
                                     Loopback loopback);

// Why a printer whose `answered` is false gave nothing, and what to do: one sentence.
std::string noAnswerMessage(const PrinterFacts& facts, const std::string& address,
                            const std::string& community);

}  // namespace kelm::ctl
