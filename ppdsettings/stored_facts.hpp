// The facts about the printer that are kept in the queue's PPD: one table, which the readers and
// the update job both walk (docs/stored-facts.md).
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace kelm::ppdsettings {

enum class Encoding {
  plain,   // the text as it stands
  base64,  // Base64 of UTF-8 text
};

// How many of the update job's options of one name are passed on.
enum class Matches { first, every };

// Whether the update job shows the line to the trace hook.
enum class Trace { no, yes };

inline constexpr int kSingle = -1;  // as last index: the keyword has no index
inline constexpr int kWhole = 0;    // as number of parts: the value is not cut into parts

struct StoredFact {
  const char* keyword;  // of the PPD and of the job option alike, without index and part
  Encoding encoding;
  const char* absent;  // what a missing keyword means; null: no entry of a list
  int lastIndex;       // the indexes begin at 0
  int parts;           // the parts begin at 1
  Matches matches;
  Trace trace;
};

inline constexpr int kMaxParts = 6;

inline constexpr StoredFact kPPDOptionsUpdated{
    "PPDOptionsUpdated", Encoding::plain, "0", kSingle, kWhole, Matches::first, Trace::yes};
inline constexpr StoredFact kIsCustomSnmpCommunity{
    "IsCustomSnmpCommunity", Encoding::plain, "0", kSingle, kWhole, Matches::first, Trace::yes};
inline constexpr StoredFact kSnmpCommunityName{
    "SnmpCommunityName", Encoding::base64, "public", kSingle, kWhole, Matches::first, Trace::yes};
inline constexpr StoredFact kIsWakeOnLan{
    // on, unless it was switched off
    "IsWakeOnLan", Encoding::plain, "1", kSingle, kWhole, Matches::first, Trace::yes};
inline constexpr StoredFact kPrinterMacAddress{
    "PrinterMacAddress", Encoding::base64, "", kSingle, kWhole, Matches::first, Trace::yes};
inline constexpr StoredFact kIsOverTheRouter{
    "IsOverTheRouter", Encoding::plain, "0", kSingle, kWhole, Matches::first, Trace::yes};
inline constexpr StoredFact kPrinterIPAddress{
    "PrinterIPAddress", Encoding::base64, "", kSingle, kWhole, Matches::first, Trace::yes};
inline constexpr StoredFact kSharedBoxName{"SharedBoxName", Encoding::base64, nullptr,   99,
                                           kMaxParts,       Matches::every,   Trace::yes};
inline constexpr StoredFact kSelSharedBoxName{"SelSharedBoxName", Encoding::base64, nullptr,   99,
                                              kMaxParts,          Matches::every,   Trace::yes};
inline constexpr StoredFact kSelSharedBoxIndex{
    "SelSharedBoxIndex", Encoding::plain, nullptr, 99, kWhole, Matches::first, Trace::no};
inline constexpr StoredFact kUsePersonalFolder{
    "UsePersonalFolder", Encoding::plain, "0", kSingle, kWhole, Matches::every, Trace::no};
inline constexpr StoredFact kAdminLoginModeEnabled{
    // on, unless it was switched off
    "AdminLoginModeEnabled", Encoding::plain, "1", kSingle, kWhole, Matches::every, Trace::no};
inline constexpr StoredFact kPSFormName{"PSFormName", Encoding::base64, nullptr,   99,
                                        kMaxParts,    Matches::every,   Trace::yes};
inline constexpr StoredFact kBarcodeAreaDefName{
    "BarcodeAreaDefName", Encoding::base64, nullptr, 99, kMaxParts, Matches::every, Trace::yes};
inline constexpr StoredFact kColorProfileName{"ColorProfileName", Encoding::base64, nullptr,   29,
                                              kMaxParts,          Matches::every,   Trace::yes};

// All of them, in the order in which an update job passes them on.
inline constexpr std::array kStoredFacts{
    kPPDOptionsUpdated, kIsCustomSnmpCommunity, kSnmpCommunityName, kIsWakeOnLan,
    kPrinterMacAddress, kIsOverTheRouter,       kPrinterIPAddress,  kSharedBoxName,
    kSelSharedBoxName,  kSelSharedBoxIndex,     kUsePersonalFolder, kAdminLoginModeEnabled,
    kPSFormName,        kBarcodeAreaDefName,    kColorProfileName};

constexpr bool isList(const StoredFact& fact) {
  return fact.lastIndex != kSingle;
}

// The keyword of the entry `index` of a list, without a part.
inline std::string entryKeyword(const StoredFact& fact, int index) {
  return fact.keyword + std::to_string(index);
}

// `keyword` of part `part` (1 to kMaxParts) of a value.
inline std::string partKeyword(std::string_view keyword, int part) {
  return std::string(keyword) + "_Part" + std::to_string(part);
}

namespace detail {

// libcups reads no PPD with a longer main keyword.
inline constexpr std::size_t kMaxKeywordLength = 40;
inline constexpr std::string_view kLongestNumbering = "99_Part6";

constexpr bool isSwitch(const StoredFact& fact) {
  return !isList(fact) && fact.encoding == Encoding::plain;
}

constexpr bool isSound(const StoredFact& fact) {
  const std::string_view keyword = fact.keyword;
  const std::string_view absent = fact.absent != nullptr ? fact.absent : "";
  const bool numbered = keyword.back() >= '0' && keyword.back() <= '9';
  return keyword.size() + kLongestNumbering.size() <= kMaxKeywordLength && !numbered &&
         isList(fact) == (fact.absent == nullptr) &&
         (!isSwitch(fact) || absent == "0" || absent == "1") &&
         (fact.parts == kWhole ||
          (fact.parts == kMaxParts && isList(fact) && fact.encoding == Encoding::base64));
}

constexpr bool everyFactIsSound() {
  for (const StoredFact& fact : kStoredFacts) {
    if (!isSound(fact)) return false;
  }
  return true;
}

constexpr bool noKeywordTwice() {
  for (std::size_t i = 0; i < kStoredFacts.size(); ++i) {
    for (std::size_t j = i + 1; j < kStoredFacts.size(); ++j) {
      if (std::string_view(kStoredFacts[i].keyword) == kStoredFacts[j].keyword) return false;
    }
  }
  return true;
}

}  // namespace detail

static_assert(kStoredFacts.size() == 15);
static_assert(detail::everyFactIsSound());
static_assert(detail::noKeywordTwice());

}  // namespace kelm::ppdsettings
