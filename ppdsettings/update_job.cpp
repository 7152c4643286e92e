// The update job: reports the facts in the job's options to CUPS.
// SPDX-License-Identifier: Apache-2.0
#include "ppdsettings/update_job.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "base/byte_source.hpp"
#include "base/hex_text.hpp"
#include "base/mac_address.hpp"
#include "job/diagnostics.hpp"
#include "platform/platform.hpp"
#include "ppdsettings/base64_text.hpp"
#include "ppdsettings/stored_facts.hpp"

namespace kelm::ppdsettings {
namespace {

using job::PrintJobData;

// libcups reads no PPD with a line of more than 255 bytes, and cupsd writes "*KEYWORD: VALUE".
constexpr std::size_t kMaxKeywordAndValue = 252;

// cupsd splits a message at white space, interprets quotation marks, apostrophes and backslashes,
// and begins a new message at a line feed.
constexpr bool isHarmless(char c) {
  return c > ' ' && c < '\x7F' && c != '"' && c != '\'' && c != '\\';
}

// Whether later jobs can use this stored MAC address: one of fewer than six parts would end them.
// An empty one means that there is none.
bool isMacAddressOrNone(const char* value) {
  const std::optional<std::string> address = decodedBase64(value);
  return address && (address->empty() || base::macAddressOf(*address));
}

// Why the value must not get into the queue's PPD; null when it may.
const char* objectionTo(const StoredFact& fact, const std::string& keyword,
                        const std::string& value) {
  if (!std::all_of(value.begin(), value.end(), isHarmless)) {
    return "its value could forge other keywords";
  }
  if (keyword.size() + value.size() > kMaxKeywordAndValue) {
    return "CUPS could not read the PPD with a value that long";
  }
  if (&fact == &storedFact("PrinterMacAddress") && !isMacAddressOrNone(value.c_str())) {
    return "its value is not a MAC address";
  }
  return nullptr;
}

void logKeyword(const std::string& keyword, const std::string& reason) {
  platform::platform().systemLog->error("[Driver] PPD keyword " + keyword +
                                        " not updated: " + reason);
}

// Writes to standard error, which has no buffer: in one call, or in several if it is non-blocking
// and takes less. Returns 0, or the errno of the write at which it gave up.
int writeToCups(std::string_view text) {
  text.remove_prefix(std::fwrite(text.data(), 1, text.size(), stderr));
  return base::writeAll(fileno(stderr), text);
}

// Writes the line in one call, so that no message of another filter of the job comes in between.
bool writeLine(const StoredFact& fact, const std::string& keyword, const std::string& value) {
  const std::string line = "PPD: " + keyword + "=" + value + "\n";
  if (line.size() >= base::kTextBufferSize) {
    logKeyword(keyword, "its value is too long; the update job ends");
    std::abort();
  }
  if (const char* objection = objectionTo(fact, keyword, value)) {
    logKeyword(keyword, objection);
    return false;
  }
  if (const int error = writeToCups(line); error != 0) {
    logKeyword(keyword, std::strerror(error));
    return false;
  }
  if (fact.trace == Trace::yes) job::LogMessage(line.c_str(), true);
  return true;
}

bool updateKeyword(const PrintJobData* job, const StoredFact& fact, const std::string& keyword) {
  bool written = false;
  for (const cups_option_t& option : job::jobOptions(job)) {
    if (option.value == nullptr || keyword != option.name) continue;
    written = writeLine(fact, keyword, option.value) || written;
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
