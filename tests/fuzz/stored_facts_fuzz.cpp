// Any texts as the values of a PPD's attributes: every reader gives valid texts within its limits.
// SPDX-License-Identifier: Apache-2.0
#include <cups/ppd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/utf.hpp"
#include "ppdsettings/snmp_helper.hpp"
#include "ppdsettings/stored_facts.hpp"
#include "tests/fuzz/fuzz_target.hpp"
#include "tests/support/memory_ppd.hpp"

namespace {

using Helper = kelm::ppdsettings::KelmSNMPHelper;

// Every fact, a list with two entries of all parts.
std::string attributesOfEveryKind() {
  std::string all;
  const auto add = [&all](const std::string& keyword) { all += "*" + keyword + ": \"x\"\n"; };
  for (const auto& fact : kelm::ppdsettings::kStoredFacts) {
    if (!kelm::ppdsettings::isList(fact)) add(fact.keyword);
    for (const int index : {0, fact.lastIndex}) {
      const std::string entry = kelm::ppdsettings::entryKeyword(fact, index);
      if (fact.parts == kelm::ppdsettings::kWhole) add(entry);
      for (int part = 1; part <= fact.parts; ++part) {
        add(kelm::ppdsettings::partKeyword(entry, part));
      }
    }
  }
  return all;
}

void checkText(const std::string& text) {
  if (!kelm::base::utf16Length(text) || text.size() > 4095) std::abort();
}

void checkList(const std::vector<std::string>& texts) {
  if (texts.size() > 2) std::abort();
  for (const std::string& text : texts) checkText(text);
}

// The same code reads all lists, and each takes a millisecond or more: each input reads one list.
constexpr std::vector<std::string> (*kLists[])(ppd_file_t*) = {
    Helper::getSharedBoxDetailsArray_, Helper::getSelectedSharedBoxDetailsArray_,
    Helper::getBarcodeAreaDefinitionDetailsArray_, Helper::getColorProfileDetailsArray_,
    Helper::getFormDetailsArray_};

// All facts, and one of the lists.
void readFacts(ppd_file_t* ppd, std::size_t list) {
  for (const auto read : {Helper::isCustomSnmpCommunity_, Helper::isWakeOnLan_,
                          Helper::isOverTheRouter_, Helper::isPPDOptionsUpdated_,
                          Helper::isPersonalFolderSelected_, Helper::isAdminLoginModeEnabled_}) {
    read(ppd);
  }
  for (const auto read :
       {Helper::snmpCommunityName_, Helper::getPrinterMacAddress_, Helper::getPrinterIPAddress_}) {
    checkText(read(ppd));
  }
  checkList(kLists[list % std::size(kLists)](ppd));
  for (const std::int32_t index : Helper::getSelectedSharedBoxIndexArray_(ppd)) {
    if (index < 0) std::abort();
  }
}

}  // namespace

// The values of the attributes, each up to a line feed. The other attributes have no value. The
// size decides which list is read.
FUZZ_TARGET(stored_facts) {
  static const kelm::tests::MemoryPpd ppd(attributesOfEveryKind());
  ppd_file_t* const file = ppd;
  std::string text(reinterpret_cast<const char*>(data), size);
  std::vector<char*> own;
  char* next = text.data();
  for (ppd_attr_t* attribute : std::span(file->attrs, static_cast<std::size_t>(file->num_attrs))) {
    own.push_back(attribute->value);
    attribute->value = next;
    if (next != nullptr && (next = std::strchr(next, '\n')) != nullptr) *next++ = '\0';
  }
  readFacts(file, size);
  for (std::size_t i = 0; i < own.size(); ++i) file->attrs[i]->value = own[i];
  return 0;
}
