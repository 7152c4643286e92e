// Everything that a printer says about itself.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/printer_facts.hpp"

#include <utility>

#include "ctl/safe_text.hpp"
#include "ctl/terminal.hpp"
#include "snmp/bracketed_address.hpp"
#include "snmp/qv_snmp_helper.hpp"

namespace kelm::ctl {
namespace {

using snmp::QVSNMPHelper;

constexpr int kWithoutAnswer = 30;  // shared boxes of a printer that does not say
constexpr int kCouldNotAsk = 1;

class Questions {
 public:
  Questions(const std::string& address, std::string community, const Console& console)
      : address_(address),
        peer_(snmp::bracketed(address)),
        community_(std::move(community)),
        line_(console) {}

  PrinterFacts askAll() {
    askWhetherThere();
    if (!facts_.answered) return facts_;
    askSwitches();
    askLists();
    return facts_;
  }

 private:
  void announce(const char* question) { line_.show("asking " + address_ + ": " + question); }
  const char* peer() const { return peer_.c_str(); }
  const char* community() const { return community_.c_str(); }

  void askWhetherThere() {
    facts_.sharedBoxCount = kWithoutAnswer;
    announce("sleep mode");
    facts_.sleepModeStatus =
        QVSNMPHelper::getSleepMode_community_sleepMode_(peer(), community(), &facts_.sleepMode);
    announce("MAC address");
    facts_.macAddress = QVSNMPHelper::getMacAddress_community_(peer(), community());
    facts_.answered = facts_.sleepModeStatus == 0 || facts_.macAddress;
  }

  void askSwitches() {
    announce("administrator log-in");
    facts_.adminLoginModeEnabled =
        QVSNMPHelper::getAdminLoginModeEnabled_community_(peer(), community());
    announce("number of shared boxes");
    facts_.sharedBoxCount =
        QVSNMPHelper::snmpGetSharedBoxEntryForIPAddress_community_(peer(), community());
  }

  void askLists() {
    announce("shared boxes");
    facts_.sharedBoxes = askSharedBoxes();
    announce("forms");
    facts_.forms =
        QVSNMPHelper::getValidatedFormNameArrayForIPAddress_community_(peer(), community());
    announce("barcode areas");
    facts_.barcodeAreas =
        QVSNMPHelper::getValidatedBarcodeAreaNameArrayForIPAddress_community_(peer(), community());
    announce("colour profiles");
    facts_.colorProfiles =
        QVSNMPHelper::getValidatedColorProfileForIPAddress_community_(peer(), community());
  }

  std::optional<std::vector<SharedBox>> askSharedBoxes() {
    const auto states =
        QVSNMPHelper::getValidatedSharedBoxStateArrayForIPAddress_community_totalCount_(
            peer(), community(), facts_.sharedBoxCount);
    if (!states) return std::nullopt;
    const auto names =
        QVSNMPHelper::getValidatedSharedBoxNameArrayForIPAddress_community_totalCount_(
            peer(), community(), facts_.sharedBoxCount);
    if (!names || names->size() != states->size()) return std::nullopt;
    std::vector<SharedBox> boxes;
    for (std::size_t i = 0; i < states->size(); ++i) boxes.push_back({(*states)[i], (*names)[i]});
    return boxes;
  }

  std::string address_;
  std::string peer_;
  std::string community_;
  ProgressLine line_;
  PrinterFacts facts_;
};

}  // namespace

PrinterFacts askPrinter(const std::string& address, const std::string& community,
                        const Console& console) {
  return Questions(address, community, console).askAll();
}

std::string addressProblem(const std::string& address) {
  constexpr char kLettersOfAddresses[] =
      "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ.-_:%[]";
  const bool sound = !snmp::unbracketed(address).empty() &&
                     address.find_first_not_of(kLettersOfAddresses) == std::string::npos;
  return sound ? "" : "\"" + address + "\" is neither an IP address nor a host name";
}

std::string noAnswerMessage(const PrinterFacts& facts, const std::string& address,
                            const std::string& community) {
  if (facts.sleepModeStatus == kCouldNotAsk) {
    return "the printer \"" + safeText(address) +
           "\" cannot be asked: the host is unknown or cannot be reached; check its spelling and "
           "the "
           "network";
  }
  return "the printer \"" + safeText(address) +
         "\" does not answer SNMP requests of the community \"" + safeText(community) +
         "\"; check that the printer and its SNMP are on, and the community (--community)";
}

}  // namespace kelm::ctl
