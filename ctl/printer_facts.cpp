// Everything that a printer says about itself.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/printer_facts.hpp"

#include <span>
#include <utility>

#include "ctl/terminal.hpp"
#include "snmp/bracketed_address.hpp"
#include "snmp/oid_tables.hpp"
#include "snmp/query.hpp"
#include "snmp/qv_snmp_helper.hpp"
#include "snmp/stepwise.hpp"
#include "wolservice/network.hpp"

namespace kelm::ctl {
namespace {

using snmp::OidText;
using snmp::PartialList;
using snmp::QVSNMPHelper;
using snmp::ValueKind;
using Names = std::optional<std::vector<std::string>>;

constexpr int kManySharedBoxes = 100;
constexpr int kFewSharedBoxes = 30;
constexpr int kCouldNotAsk = 1;
constexpr char kInUse[] = "1";

// One list of the printer, as it is asked for in smaller steps.
struct ListObjects {
  const char* entry;  // what an entry is called
  std::span<const OidText> states;
  std::span<const OidText> names;
};

class Questions {
 public:
  Questions(const std::string& address, std::string community, Incomplete incomplete,
            const Console& console)
      : address_(address),
        peer_(snmp::bracketed(address)),
        community_(std::move(community)),
        incomplete_(incomplete),
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
    announce("sleep mode");
    facts_.sleepModeStatus =
        QVSNMPHelper::getSleepMode_community_sleepMode_(peer(), community(), &facts_.sleepMode);
    announce("MAC address");
    facts_.macAddress = QVSNMPHelper::getMacAddress_community_(peer(), community());
    facts_.answered = facts_.sleepModeStatus == 0 || facts_.macAddress;
  }

  snmp::Answer ask(const OidText& object) const {
    std::string agent;
    QVSNMPHelper::getConvertedAddress_sourceAddr_(agent, peer());
    return snmp::get(agent.c_str(), community(), std::span(&object, 1), snmp::kUsualQuery);
  }

  // These are not asked through QVSNMPHelper, which takes silence for "off" and for 30 boxes: a
  // lost answer must not change what is stored.
  void askSwitches() {
    announce("administrator log-in");
    const auto mode = snmp::firstInteger(ask(snmp::kAdminLoginModeOid).response.get());
    if (mode) facts_.adminLoginModeEnabled = *mode == 1;
    announce("number of shared boxes");
    const snmp::Answer answer = ask(snmp::kLastSharedBoxStateOid);
    if (answer.status != STAT_SUCCESS) return;
    if (answer.response->errstat == SNMP_ERR_NOERROR) {
      facts_.sharedBoxCount = kManySharedBoxes;
    } else if (answer.response->errstat == SNMP_ERR_NOSUCHNAME) {
      facts_.sharedBoxCount = kFewSharedBoxes;
    }
  }

  void askLists() {
    announce("shared boxes");
    if (facts_.sharedBoxCount) askSharedBoxes(*facts_.sharedBoxCount);
    announce("forms");
    facts_.forms = inStepsUnless(
        QVSNMPHelper::getValidatedFormNameArrayForIPAddress_community_(peer(), community()),
        {"form", snmp::formStateOID, snmp::formNameOID});
    announce("barcode areas");
    facts_.barcodeAreas = inStepsUnless(
        QVSNMPHelper::getValidatedBarcodeAreaNameArrayForIPAddress_community_(peer(), community()),
        {"barcode area", snmp::barcodeAreaDefinitionStateOID, snmp::barcodeAreaDefinitionNameOID});
    announce("colour profiles");
    facts_.colorProfiles = inStepsUnless(
        QVSNMPHelper::getValidatedColorProfileForIPAddress_community_(peer(), community()),
        {"colour profile", snmp::colorProfileStateOID, snmp::colorProfileNameOID});
  }

  void askSharedBoxes(int count) {
    const auto states =
        QVSNMPHelper::getValidatedSharedBoxStateArrayForIPAddress_community_totalCount_(
            peer(), community(), count);
    const auto names =
        states ? QVSNMPHelper::getValidatedSharedBoxNameArrayForIPAddress_community_totalCount_(
                     peer(), community(), count)
               : std::nullopt;
    if (names) {
      facts_.sharedBoxes.emplace();
      for (std::size_t i = 0; i < states->size(); ++i) {
        facts_.sharedBoxes->push_back({(*states)[i], (*names)[i]});
      }
      return;
    }
    const auto objects = static_cast<std::size_t>(count);
    facts_.sharedBoxes =
        boxesInSteps({"shared box", std::span(snmp::sharedBoxStateOID).first(objects),
                      std::span(snmp::sharedBoxNameOID).first(objects)});
  }

  // These lists are stored without gaps. If an entry were left out, those after it would get other
  // numbers.
  Names inStepsUnless(Names whole, const ListObjects& list) {
    if (whole) return whole;
    const auto entries = boxesInSteps(list);
    if (!entries) return std::nullopt;
    std::vector<std::string> names;
    for (const SharedBox& entry : *entries) {
      if (entry.isLeftOut()) return std::nullopt;
      if (entry.inUse()) names.push_back(entry.name);
    }
    return names;
  }

  std::optional<PartialList> inSteps(std::span<const OidText> objects, ValueKind kind) {
    if (isGone_ || incomplete_ == Incomplete::kAbsent) return std::nullopt;
    snmp::StepwiseAnswer answer = snmp::getStepwise(peer(), community(), objects, kind);
    isGone_ = answer.isSilent;
    return std::move(answer.list);
  }

  // The entries of any list, in the form of boxes; the name of one that is not in use is not
  // needed.
  std::optional<std::vector<SharedBox>> boxesInSteps(const ListObjects& list) {
    const auto states = inSteps(list.states, ValueKind::kState);
    const auto names = states ? inSteps(list.names, ValueKind::kName) : std::nullopt;
    if (!names) return std::nullopt;
    std::vector<SharedBox> entries;
    for (std::size_t i = 0; i < states->size(); ++i) {
      const auto& state = (*states)[i];
      const auto& name = (*names)[i];
      const bool isRead = state && (name || *state != kInUse);
      entries.push_back(isRead ? SharedBox{*state, name.value_or("")} : SharedBox{});
      if (!isRead) facts_.leftOut.push_back(std::string(list.entry) + " " + std::to_string(i + 1));
    }
    return entries;
  }

  std::string address_;
  std::string peer_;
  std::string community_;
  Incomplete incomplete_;
  ProgressLine line_;
  PrinterFacts facts_;
  bool isGone_ = false;
};

}  // namespace

PrinterFacts askPrinter(const std::string& address, const std::string& community,
                        Incomplete incomplete, const Console& console) {
  return Questions(address, community, incomplete, console).askAll();
}

std::string addressProblem(const std::string& address) {
  constexpr char kLettersOfAddresses[] =
      "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ.-_:%[]";
  const bool sound = !snmp::unbracketed(address).empty() &&
                     address.find_first_not_of(kLettersOfAddresses) == std::string::npos;
  return sound ? "" : "\"" + address + "\" is neither an IP address nor a host name";
}

std::string impossibleAddressProblem(const std::string& host, const std::string& address,
                                     Loopback loopback) {
  if (wolservice::mayBeAPrinter(address)) return {};
  if (loopback == Loopback::kAccepted && wolservice::isLoopback(address)) return {};
  const std::string problem = "no printer can have the address \"" + address + "\"";
  return host == address ? problem : problem + " of the host \"" + host + "\"";
}

std::string noAnswerMessage(const PrinterFacts& facts, const std::string& address,
                            const std::string& community) {
  if (facts.sleepModeStatus == kCouldNotAsk) {
    return "the printer \"" + address +
           "\" cannot be asked: the host is unknown or cannot be reached; check its spelling and "
           "the network";
  }
  return "the printer \"" + address + "\" does not answer SNMP requests of the community \"" +
         community +
         "\"; check that the printer and its SNMP are on, and the community (--community)";
}

}  // namespace kelm::ctl
