// The update job: reports the facts in the job's options to CUPS.
// SPDX-License-Identifier: Apache-2.0
#include "ppdsettings/update_job.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/hex_text.hpp"
#include "job/diagnostics.hpp"
#include "platform/platform.hpp"
#include "ppdsettings/stored_facts.hpp"

namespace kelm::ppdsettings {
namespace {

using job::PrintJobData;

// cupsd takes this many bytes of a line as one message, and the rest as the next message.
constexpr std::size_t kCupsMessageSize = 2047;

// cupsd splits a message at white space, interprets quotation marks, apostrophes and backslashes,
// and begins a new message at a line feed.
constexpr bool isHarmless(char c) {
  return c > ' ' && c < '\x7F' && c != '"' && c != '\'' && c != '\\';
}

// Whether cupsd could take a part of the value for a keyword. The rest of a line that it cuts is a
// message only with a colon ("PPD:").
bool couldForge(std::string_view value, std::size_t lineSize) {
  if (lineSize > kCupsMessageSize && value.find(':') != value.npos) return true;
  return !std::all_of(value.begin(), value.end(), isHarmless);
}

void logKeyword(const std::string& keyword, const char* what) {
  platform::platform().systemLog->error("[Driver] PPD keyword " + keyword + what);
}

// One write, so that no message of another filter of the job comes in between.
bool writeLine(const std::string& keyword, std::string_view value, Trace trace) {
  const std::string line = "PPD: " + keyword + "=" + std::string(value) + "\n";
  if (line.size() >= base::kTextBufferSize) {
    logKeyword(keyword, " not updated: its value is too long; the update job ends");
    std::abort();
  }
  if (couldForge(value, line.size())) {
    logKeyword(keyword, " not updated: its value could forge other keywords");
    return false;
  }
  std::fputs(line.c_str(), stderr);
  if (trace == Trace::yes) job::LogMessage(line.c_str(), true);
  return true;
}

bool updateKeyword(const PrintJobData* job, const StoredFact& fact, const std::string& keyword) {
  bool written = false;
  for (const cups_option_t& option : job::jobOptions(job)) {
    if (option.value == nullptr || keyword != option.name) continue;
    written = writeLine(keyword, option.value, fact.trace) || written;
    if (fact.matches == Matches::first) break;
  }
  return written;
}

bool updateEntry(const PrintJobData* job, const StoredFact& fact, const std::string& keyword) {
  if (fact.parts == kWhole) return updateKeyword(job, fact, keyword);
  bool written = false;
  for (int part = 1; part <= fact.parts; ++part) {
    written = updateKeyword(job, fact, partKeyword(keyword, part)) || written;
  }
  return written;
}

bool updateFact(const PrintJobData* job, const StoredFact& fact) {
  if (!isList(fact)) return updateEntry(job, fact, fact.keyword);
  bool written = false;
  for (int index = 0; index <= fact.lastIndex; ++index) {
    written = updateEntry(job, fact, entryKeyword(fact, index)) || written;
  }
  return written;
}

}  // namespace

bool ShouldUpdatePPD(const PrintJobData* job) {
  return job::findJobOption(job, "UpdatePPDOptions") != nullptr;
}

bool UpdatePPDOptionsUpdatedToPPD(const PrintJobData* job) {
  return updateFact(job, storedFact("PPDOptionsUpdated"));
}

bool UpdateIsCustomSnmpCommunityToPPD(const PrintJobData* job) {
  return updateFact(job, storedFact("IsCustomSnmpCommunity"));
}

bool UpdateSnmpCommunityNameToPPD(const PrintJobData* job) {
  return updateFact(job, storedFact("SnmpCommunityName"));
}

bool UpdateIsWakeOnLanToPPD(const PrintJobData* job) {
  return updateFact(job, storedFact("IsWakeOnLan"));
}

bool UpdateMacAddressToPPD(const PrintJobData* job) {
  return updateFact(job, storedFact("PrinterMacAddress"));
}

bool UpdateOverTheRouterToPPD(const PrintJobData* job) {
  return updateFact(job, storedFact("IsOverTheRouter"));
}

bool UpdateIPAddressToPPD(const PrintJobData* job) {
  return updateFact(job, storedFact("PrinterIPAddress"));
}

bool UpdateSharedBoxToPPD(const PrintJobData* job) {
  const bool boxes = updateFact(job, storedFact("SharedBoxName"));
  const bool selected = updateFact(job, storedFact("SelSharedBoxName"));
  const bool indexes = updateFact(job, storedFact("SelSharedBoxIndex"));
  return boxes || selected || indexes;
}

bool UpdateUsePersonalFolderToPPD(const PrintJobData* job) {
  return updateFact(job, storedFact("UsePersonalFolder"));
}

bool UpdateAdminLoginModeToPPD(const PrintJobData* job) {
  return updateFact(job, storedFact("AdminLoginModeEnabled"));
}

bool UpdatePSFormNameToPPD(const PrintJobData* job) {
  return updateFact(job, storedFact("PSFormName"));
}

bool UpdateBarcodeAreaDefNameToPPD(const PrintJobData* job) {
  return updateFact(job, storedFact("BarcodeAreaDefName"));
}

bool UpdateColorProfilesNameToPPD(const PrintJobData* job) {
  return updateFact(job, storedFact("ColorProfileName"));
}

}  // namespace kelm::ppdsettings
