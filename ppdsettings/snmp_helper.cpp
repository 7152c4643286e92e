// Reads the stored facts about the printer from the queue's PPD.
// SPDX-License-Identifier: Apache-2.0
#include "ppdsettings/snmp_helper.hpp"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>
#include <string_view>
#include <utility>

#include "base/hex_text.hpp"
#include "job/ppd_calls.hpp"
#include "ppdsettings/base64_text.hpp"
#include "ppdsettings/stored_facts.hpp"

namespace kelm::ppdsettings {
namespace {

using base::kTextBufferSize;
using job::r_ppdFindAttr;

constexpr std::size_t kKeywordBufferSize = 128;

// How the text of a switch is read: `literal` means `meaning`, and every other text means the
// opposite.
struct SwitchRule {
  const char* literal;
  bool meaning;
  bool notUtf8;  // the meaning of a text that is not valid UTF-8
};

constexpr SwitchRule kOnlyOneIsTrue{"1", true, false};
constexpr SwitchRule kOnlyZeroIsFalse{"0", false, false};
constexpr SwitchRule kPersonalFolder{"1", true, true};

// The value of the first attribute of this keyword; null without one.
const char* attributeValue(ppd_file_t* ppd, const char* keyword) {
  const ppd_attr_t* attribute = r_ppdFindAttr(ppd, keyword, nullptr);
  return attribute != nullptr ? attribute->value : nullptr;
}

bool readSwitch(const StoredFact& fact, const SwitchRule& rule, ppd_file_t* ppd) {
  auto text = KelmSNMPHelper::getPPDAttributeValueForName_ppdFile_(fact.keyword, ppd);
  if (!text) return rule.notUtf8;
  if (text->empty()) text = fact.absent;
  return (*text == rule.literal) == rule.meaning;
}

std::string readText(const StoredFact& fact, ppd_file_t* ppd) {
  return KelmSNMPHelper::getDecodedPPDAttributeValueForName_ppdFile_(fact.keyword, ppd)
      .value_or(fact.absent);
}

std::vector<std::string> readTexts(const StoredFact& fact, ppd_file_t* ppd) {
  std::vector<std::string> texts;
  for (int index = 0; index <= fact.lastIndex; ++index) {
    std::string text = KelmSNMPHelper::getDecodedPPDAttributeMaltiPartValueForName_ppdFile_(
        entryKeyword(fact, index).c_str(), ppd);
    if (!text.empty()) texts.push_back(std::move(text));
  }
  return texts;
}

std::int32_t leadingDigits(std::string_view text) {
  constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
  std::uint32_t number = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
  if (end.ec == std::errc::result_out_of_range) return kLargest;
  return static_cast<std::int32_t>(std::min<std::uint32_t>(number, kLargest));
}

}  // namespace

std::optional<std::string> KelmSNMPHelper::getPPDAttributeValueForName_ppdFile_(const char* keyword,
                                                                                ppd_file_t* ppd) {
  const char* value = attributeValue(ppd, keyword);
  return validUtf8(value != nullptr ? value : "");
}

std::optional<std::string> KelmSNMPHelper::getDecodedPPDAttributeValueForName_ppdFile_(
    const char* keyword, ppd_file_t* ppd) {
  const char* value = attributeValue(ppd, keyword);
  if (value == nullptr) return std::nullopt;
  return decodedBase64(value);
}

std::string KelmSNMPHelper::getDecodedPPDAttributeMaltiPartValueForName_ppdFile_(
    const char* keyword, ppd_file_t* ppd) {
  std::string joined;
  for (int part = 1; part <= kMaxParts; ++part) {
    const std::string name = partKeyword(keyword, part).substr(0, kKeywordBufferSize - 1);
    const char* value = attributeValue(ppd, name.c_str());
    if (value == nullptr) continue;
    const std::size_t free = kTextBufferSize - joined.size();
    if (free > std::strlen(value) + 1) joined += value;
  }
  return decodedBase64(joined.c_str()).value_or("");
}

bool KelmSNMPHelper::isCustomSnmpCommunity_(ppd_file_t* ppd) {
  return readSwitch(storedFact("IsCustomSnmpCommunity"), kOnlyOneIsTrue, ppd);
}

std::string KelmSNMPHelper::snmpCommunityName_(ppd_file_t* ppd) {
  return readText(storedFact("SnmpCommunityName"), ppd);
}

bool KelmSNMPHelper::isWakeOnLan_(ppd_file_t* ppd) {
  return readSwitch(storedFact("IsWakeOnLan"), kOnlyOneIsTrue, ppd);
}

std::string KelmSNMPHelper::getPrinterMacAddress_(ppd_file_t* ppd) {
  return readText(storedFact("PrinterMacAddress"), ppd);
}

bool KelmSNMPHelper::isOverTheRouter_(ppd_file_t* ppd) {
  return readSwitch(storedFact("IsOverTheRouter"), kOnlyOneIsTrue, ppd);
}

std::string KelmSNMPHelper::getPrinterIPAddress_(ppd_file_t* ppd) {
  return readText(storedFact("PrinterIPAddress"), ppd);
}

bool KelmSNMPHelper::isPPDOptionsUpdated_(ppd_file_t* ppd) {
  return readSwitch(storedFact("PPDOptionsUpdated"), kOnlyOneIsTrue, ppd);
}

bool KelmSNMPHelper::isPersonalFolderSelected_(ppd_file_t* ppd) {
  return readSwitch(storedFact("UsePersonalFolder"), kPersonalFolder, ppd);
}

bool KelmSNMPHelper::isAdminLoginModeEnabled_(ppd_file_t* ppd) {
  return readSwitch(storedFact("AdminLoginModeEnabled"), kOnlyZeroIsFalse, ppd);
}

std::vector<std::string> KelmSNMPHelper::getSharedBoxDetailsArray_(ppd_file_t* ppd) {
  return readTexts(storedFact("SharedBoxName"), ppd);
}

std::vector<std::string> KelmSNMPHelper::getSelectedSharedBoxDetailsArray_(ppd_file_t* ppd) {
  return readTexts(storedFact("SelSharedBoxName"), ppd);
}

std::vector<std::string> KelmSNMPHelper::getBarcodeAreaDefinitionDetailsArray_(ppd_file_t* ppd) {
  return readTexts(storedFact("BarcodeAreaDefName"), ppd);
}

std::vector<std::string> KelmSNMPHelper::getColorProfileDetailsArray_(ppd_file_t* ppd) {
  return readTexts(storedFact("ColorProfileName"), ppd);
}

std::vector<std::string> KelmSNMPHelper::getFormDetailsArray_(ppd_file_t* ppd) {
  return readTexts(storedFact("PSFormName"), ppd);
}

std::vector<std::int32_t> KelmSNMPHelper::getSelectedSharedBoxIndexArray_(ppd_file_t* ppd) {
  constexpr const StoredFact& kFact = storedFact("SelSharedBoxIndex");
  std::vector<std::int32_t> indexes;
  for (int index = 0; index <= kFact.lastIndex; ++index) {
    const std::string keyword = entryKeyword(kFact, index);
    const auto text = getPPDAttributeValueForName_ppdFile_(keyword.c_str(), ppd);
    if (text && !text->empty()) indexes.push_back(leadingDigits(*text));
  }
  return indexes;
}

}  // namespace kelm::ppdsettings
