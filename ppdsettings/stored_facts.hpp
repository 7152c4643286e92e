// The facts about the printer that the queue's PPD stores: one table for the readers and the update
// job (docs/stored-facts.md).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kelm::ppdsettings {

enum class Encoding {
  plain,   // the text itself
  base64,  // Base64 of UTF-8 text
};

// Which of the update job's options of one name are passed on.
enum class Matches { first, every };

// Whether the update job passes the line to the trace hook.
enum class Trace { no, yes };

inline constexpr int kSingle = -1;   // as last index: the keyword has no index
inline constexpr int kWhole = 0;     // as number of parts: the value is not cut into parts
inline constexpr int kMaxParts = 6;  // otherwise

struct StoredFact {
  const char* keyword;  // of the PPD and of the job option, without index and part
  Encoding encoding;
  const char* absent;  // the meaning of a missing keyword; null for lists
  int lastIndex;       // the indexes begin at 0
  int parts;           // the parts begin at 1
  Matches matches;
  Trace trace;
};

using enum Encoding;

// In the order in which an update job passes them on. The wake-up and the administrator's log-in
// mode are on unless stored as off.
// clang-format off
inline constexpr StoredFact kStoredFacts[] = {
    {"PPDOptionsUpdated",     plain,  "0",      kSingle, kWhole,    Matches::first, Trace::yes},
    {"IsCustomSnmpCommunity", plain,  "0",      kSingle, kWhole,    Matches::first, Trace::yes},
    {"SnmpCommunityName",     base64, "public", kSingle, kWhole,    Matches::first, Trace::yes},
    {"IsWakeOnLan",           plain,  "1",      kSingle, kWhole,    Matches::first, Trace::yes},
    {"PrinterMacAddress",     base64, "",       kSingle, kWhole,    Matches::first, Trace::yes},
    {"IsOverTheRouter",       plain,  "0",      kSingle, kWhole,    Matches::first, Trace::yes},
    {"PrinterIPAddress",      base64, "",       kSingle, kWhole,    Matches::first, Trace::yes},
    {"SharedBoxName",         base64, nullptr,  99,      kMaxParts, Matches::every, Trace::yes},
    {"SelSharedBoxName",      base64, nullptr,  99,      kMaxParts, Matches::every, Trace::yes},
    {"SelSharedBoxIndex",     plain,  nullptr,  99,      kWhole,    Matches::first, Trace::no},
    {"UsePersonalFolder",     plain,  "0",      kSingle, kWhole,    Matches::every, Trace::no},
    {"AdminLoginModeEnabled", plain,  "1",      kSingle, kWhole,    Matches::every, Trace::no},
    {"PSFormName",            base64, nullptr,  99,      kMaxParts, Matches::every, Trace::yes},
    {"BarcodeAreaDefName",    base64, nullptr,  99,      kMaxParts, Matches::every, Trace::yes},
    {"ColorProfileName",      base64, nullptr,  29,      kMaxParts, Matches::every, Trace::yes},
};
// clang-format on

constexpr bool isList(const StoredFact& fact) { return fact.lastIndex != kSingle; }

// The keyword of the entry `index` of a list, without a part.
inline std::string entryKeyword(const StoredFact& fact, int index) {
  return fact.keyword + std::to_string(index);
}

// `keyword` of part `part` (1 to kMaxParts) of a value.
inline std::string partKeyword(std::string_view keyword, int part) {
  return std::string(keyword) + "_Part" + std::to_string(part);
}

namespace detail {

// Deliberately not constexpr: a call stops the compiler, and its error names this function.
void noStoredFactHasThisKeyword();

// libcups reads no PPD with a longer main keyword.
inline constexpr std::size_t kMaxKeywordLength = 40;
inline constexpr std::string_view kLongestNumbering = "99_Part6";

constexpr bool isSwitch(const StoredFact& fact) { return !isList(fact) && fact.encoding == plain; }

constexpr bool isSound(const StoredFact& fact) {
  const std::string_view keyword = fact.keyword;
  const std::string_view absent = fact.absent != nullptr ? fact.absent : "";
  const bool numbered = keyword.back() >= '0' && keyword.back() <= '9';
  return keyword.size() + kLongestNumbering.size() <= kMaxKeywordLength && !numbered &&
         isList(fact) == (fact.absent == nullptr) &&
         (!isSwitch(fact) || absent == "0" || absent == "1") &&
         (fact.parts == kWhole ||
          (fact.parts == kMaxParts && isList(fact) && fact.encoding == base64));
}

constexpr bool everyFactIsSound() {
  for (const StoredFact& fact : kStoredFacts) {
    if (!isSound(fact)) return false;
  }
  return true;
}

constexpr bool noKeywordTwice() {
  for (const StoredFact& fact : kStoredFacts) {
    for (const StoredFact* other = kStoredFacts; other != &fact; ++other) {
      if (std::string_view(fact.keyword) == other->keyword) return false;
    }
  }
  return true;
}

}  // namespace detail

static_assert(detail::everyFactIsSound());
static_assert(detail::noKeywordTwice());

// The row of `keyword`.
consteval const StoredFact& storedFact(std::string_view keyword) {
  for (const StoredFact& fact : kStoredFacts) {
    if (fact.keyword == keyword) return fact;
  }
  detail::noStoredFactHasThisKeyword();
  return kStoredFacts[0];
}

}  // namespace kelm::ppdsettings
