// kelmctl sync: asks a queue's printer and stores the answers in the queue's PPD.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "ctl/commands.hpp"
#include "ctl/device_address.hpp"
#include "ctl/exit_status.hpp"
#include "ctl/printer_facts.hpp"
#include "ctl/queue_ppd.hpp"
#include "ctl/safe_text.hpp"
#include "ctl/stored_settings.hpp"
#include "ctl/update_lines.hpp"
#include "ctl/update_sender.hpp"
#include "ppdsettings/snmp_helper.hpp"
#include "snmp/bracketed_address.hpp"

namespace kelm::ctl {
namespace {

struct Arguments {
  std::string queue;
  std::optional<std::string> address;
  std::optional<std::string> community;
  bool dryRun = false;
};

int fail(const Console& console, const std::string& problem) {
  console.err << "kelmctl: " << problem << '\n';
  return kExitFailed;
}

// An entry that is in `these` and not in `those`, with `sign` before it.
void writeOnlyIn(std::ostream& out, const char* sign, const std::vector<std::string>& these,
                 const std::vector<std::string>& those) {
  for (const std::string& entry : these) {
    if (std::find(those.begin(), those.end(), entry) == those.end()) {
      out << "  " << sign << ' ' << entry << '\n';
    }
  }
}

void writeChange(std::ostream& out, const StoredSetting& before, const StoredSetting& after) {
  out << after.label << ": ";
  if (!after.isList) {
    out << before.values.front() << " -> " << after.values.front() << '\n';
    return;
  }
  out << before.values.size() << " -> " << after.values.size() << '\n';
  writeOnlyIn(out, "-", before.values, after.values);
  writeOnlyIn(out, "+", after.values, before.values);
}

// Whether there was anything to write.
bool writeChanges(std::ostream& out, const std::vector<StoredSetting>& before,
                  const std::vector<StoredSetting>& after) {
  bool changed = false;
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (before[i].values == after[i].values) continue;
    writeChange(out, before[i], after[i]);
    changed = true;
  }
  return changed;
}

void warnAbout(const Console& console, const char* missing, bool given) {
  if (given) return;
  console.err << "kelmctl: the printer gives no " << missing << "; what is stored of it stays\n";
}

void warnAboutMissingFacts(const Console& console, const PrinterFacts& facts) {
  warnAbout(console, "MAC address of six hexadecimal parts", storableMacAddress(facts).has_value());
  warnAbout(console, "complete list of its shared boxes", facts.sharedBoxes.has_value());
  warnAbout(console, "complete list of its forms", facts.forms.has_value());
  warnAbout(console, "complete list of its barcode areas", facts.barcodeAreas.has_value());
  warnAbout(console, "complete list of its colour profiles", facts.colorProfiles.has_value());
}

void writeLines(std::ostream& out, const std::vector<UpdateLine>& lines) {
  for (const UpdateLine& line : lines) out << line.keyword << '=' << line.value << '\n';
}

int store(const Arguments& arguments, const std::vector<UpdateLine>& lines, ppd_file_t* before,
          const Console& console) {
  std::string problem = sendUpdate(arguments.queue, lines, console);
  const OpenedPpd after = openQueuePpd(arguments.queue);
  if (after.ppd == nullptr) return fail(console, problem.empty() ? after.problem : problem);
  const UpdateLine* missing = firstNotStored(lines, after.ppd.get());
  if (problem.empty() && missing != nullptr) {
    problem = "the print server did not store " + missing->keyword + "; does the queue \"" +
              arguments.queue + "\" print with kelmfilter?";
  }
  const bool changed =
      writeChanges(console.out, storedSettings(before), storedSettings(after.ppd.get()));
  if (!problem.empty()) return fail(console, problem);
  if (!changed) console.out << "Nothing changed.\n";
  return kExitDone;
}

int askAndStore(const Arguments& arguments, const std::string& address, ppd_file_t* ppd,
                const Console& console) {
  const std::string community =
      arguments.community.value_or(ppdsettings::KelmSNMPHelper::snmpCommunityName_(ppd));
  const PrinterFacts facts = askPrinter(address, community, console);
  if (!facts.answered) return fail(console, noAnswerMessage(facts, address, community));
  if (!facts.knowsAnything()) {
    return fail(console,
                "\"" + safeText(address) +
                    "\" answers, but knows nothing of a KELM IJ printer; check the address");
  }
  const UpdateLines update = updateLinesFor(facts, address, community, ppd);
  if (!update.problem.empty()) return fail(console, update.problem);
  warnAboutMissingFacts(console, facts);
  if (!arguments.dryRun) return store(arguments, update.lines, ppd, console);
  writeLines(console.out, update.lines);
  return kExitDone;
}

int sync(const Arguments& arguments, const Console& console) {
  const OpenedPpd stored = openQueuePpd(arguments.queue);
  if (stored.ppd == nullptr) return fail(console, stored.problem);
  const QueueState state = queueState(arguments.queue);
  if (!state.problem.empty() && !arguments.dryRun) return fail(console, state.problem);
  const std::string address =
      arguments.address ? snmp::unbracketed(*arguments.address) : addressOfDevice(state.deviceUri);
  if (address.empty()) {
    return fail(console, "no address of a printer is found in the device URI \"" +
                             safeText(state.deviceUri) + "\" of the queue \"" + arguments.queue +
                             "\"; give it with --address");
  }
  return askAndStore(arguments, address, stored.ppd.get(), console);
}

}  // namespace

Action declareSync(ArgumentList& list) {
  auto arguments = std::make_shared<Arguments>();
  list.add("QUEUE", arguments->queue, "The queue, as lpstat -v names it").required().valueName("");
  list.add("--address", arguments->address,
           "The printer's IP address or host name, instead of the device URI's")
      .valueName("ADDRESS")
      .check(addressProblem);
  list.add("--community", arguments->community,
           "The printer's SNMP community, instead of the stored one")
      .valueName("NAME");
  list.addFlag("--dry-run", arguments->dryRun, "Show what would be stored, and store nothing");
  return [arguments](const Console& console) { return sync(*arguments, console); };
}

}  // namespace kelm::ctl
