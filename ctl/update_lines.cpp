// A printer's answers as keywords and values of the queue's PPD.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/update_lines.hpp"

#include <cups/http.h>

#include <algorithm>
#include <numeric>
#include <string_view>

#include "base/mac_address.hpp"
#include "base/utf.hpp"
#include "ppdsettings/stored_facts.hpp"

namespace kelm::ctl {
namespace {

using ppdsettings::entryKeyword;
using ppdsettings::partKeyword;
using ppdsettings::storedFact;
using ppdsettings::StoredFact;
using Texts = std::vector<std::string>;

constexpr char kDefaultCommunity[] = "public";
constexpr std::size_t kShownCharacters = 40;

std::string base64Of(const std::string& text) {
  std::string encoded(text.size() / 3 * 4 + 5, '\0');
  httpEncode64_2(encoded.data(), static_cast<int>(encoded.size()), text.data(),
                 static_cast<int>(text.size()));
  encoded.resize(encoded.find('\0'));
  return encoded;
}

std::string storedValue(const StoredLines& stored, const std::string& keyword) {
  const auto line = stored.find(keyword);
  return line != stored.end() ? line->second : "";
}

// The beginning of a text that is too long to be shown whole.
std::string beginningOf(std::string_view text) {
  std::string_view rest = text;
  for (std::size_t i = 0; i < kShownCharacters && !rest.empty(); ++i) {
    rest.remove_prefix(base::firstCharacter(rest).size());
  }
  const std::string_view shown = text.substr(0, text.size() - rest.size());
  return "\"" + std::string(shown) + (rest.empty() ? "\"" : "...\"");
}

class Composer {
 public:
  explicit Composer(const StoredLines& stored) : stored_(stored) {}

  void addPlain(const StoredFact& fact, bool value) { add(fact.keyword, value ? "1" : "0"); }

  void addText(const StoredFact& fact, const char* what, const std::string& text) {
    const std::string value = base64Of(text);
    if (value.size() <= roomFor(fact.keyword)) return add(fact.keyword, value);
    refuse(what, text);
  }

  // `texts` are the entries from index 0 on; an empty text means no entry.
  void addList(const StoredFact& fact, const char* what, const Texts& texts) {
    for (int index = 0; index <= fact.lastIndex; ++index) {
      const auto position = static_cast<std::size_t>(index);
      addEntry(fact, what, index, position < texts.size() ? texts[position] : "");
    }
  }

  // A box that was left out stays as it is stored.
  void addBoxes(const StoredFact& fact, const std::vector<SharedBox>& boxes) {
    for (int index = 0; index <= fact.lastIndex; ++index) {
      const auto position = static_cast<std::size_t>(index);
      const SharedBox box = position < boxes.size() ? boxes[position] : SharedBox{"0", {}};
      if (!box.isLeftOut()) addEntry(fact, "shared box", index, box.inUse() ? box.name : "");
    }
  }

  UpdateLines result() {
    const std::size_t size = std::accumulate(
        lines_.begin(), lines_.end(), std::size_t{0}, [](std::size_t sum, const UpdateLine& line) {
          return sum + line.keyword.size() + line.value.size() + 2;
        });
    if (problem_.empty() && size > kMostOfAllLines) {
      problem_ = "the printer's lists take " + std::to_string(size) +
                 " bytes, and an update job can carry " + std::to_string(kMostOfAllLines) +
                 "; shorten names at the printer";
    }
    if (!problem_.empty()) lines_.clear();
    return {std::move(lines_), std::move(problem_)};
  }

 private:
  static std::size_t roomFor(std::string_view keyword) {
    return kMostOfKeywordAndValue - keyword.size();
  }

  void add(const std::string& keyword, const std::string& value) {
    lines_.push_back({keyword, value});
  }

  void addEntry(const StoredFact& fact, const char* what, int index, const std::string& text) {
    std::string rest = base64Of(text);
    const std::string keyword = entryKeyword(fact, index);
    for (int part = 1; part <= fact.parts; ++part) {
      const std::string name = partKeyword(keyword, part);
      const std::string value = rest.substr(0, roomFor(name));
      rest.erase(0, value.size());
      if (!value.empty() || !storedValue(stored_, name).empty()) add(name, value);
    }
    if (!rest.empty()) refuse(std::string(what) + " " + std::to_string(index + 1), text);
  }

  void refuse(const std::string& what, const std::string& text) {
    if (!problem_.empty()) return;
    problem_ = "the " + what + " " + beginningOf(text) + " of " + std::to_string(text.size()) +
               " bytes is too long for the queue's PPD; shorten it at the printer";
  }

  const StoredLines& stored_;
  std::vector<UpdateLine> lines_;
  std::string problem_;
};

constexpr std::size_t kMacParts = 6;

bool isHexDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// "001BA9000001" with a colon after every second digit.
std::string withColons(const std::string& digits) {
  std::string text;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    if (i > 0) text += ':';
    text += digits.substr(i, 2);
  }
  return text;
}

}  // namespace

std::optional<std::string> storableMacAddress(const PrinterFacts& facts) {
  return facts.macAddress ? storableMacAddress(*facts.macAddress) : std::nullopt;
}

std::optional<std::string> storableMacAddress(std::string text) {
  std::replace(text.begin(), text.end(), '-', ':');
  if (text.size() == 2 * kMacParts && std::all_of(text.begin(), text.end(), isHexDigit)) {
    text = withColons(text);
  }
  const auto address = base::macAddressOf(text);
  return address && !base::isNone(*address) ? std::optional(text) : std::nullopt;
}

std::vector<std::string> missingFacts(const PrinterFacts& facts) {
  std::vector<std::string> missing;
  const auto check = [&](bool isGiven, const char* what) {
    if (!isGiven) missing.emplace_back(what);
  };
  check(storableMacAddress(facts).has_value(), "MAC address of six hexadecimal parts");
  check(facts.adminLoginModeEnabled.has_value(), "administrator log-in mode");
  check(facts.sharedBoxes.has_value(), "complete list of its shared boxes");
  check(facts.forms.has_value(), "complete list of its forms");
  check(facts.barcodeAreas.has_value(), "complete list of its barcode areas");
  check(facts.colorProfiles.has_value(), "complete list of its colour profiles");
  for (const std::string& entry : facts.leftOut) missing.push_back("readable " + entry);
  return missing;
}

UpdateLines updateLinesFor(const PrinterFacts& facts, const std::string& address,
                           const std::string& community, const StoredLines& stored) {
  Composer composer(stored);
  if (missingFacts(facts).empty()) composer.addPlain(storedFact("PPDOptionsUpdated"), true);
  composer.addPlain(storedFact("IsCustomSnmpCommunity"), community != kDefaultCommunity);
  composer.addText(storedFact("SnmpCommunityName"), "community", community);
  if (const auto macAddress = storableMacAddress(facts)) {
    composer.addText(storedFact("PrinterMacAddress"), "MAC address", *macAddress);
  }
  composer.addText(storedFact("PrinterIPAddress"), "address", address);
  if (facts.sharedBoxes) {
    composer.addBoxes(storedFact("SharedBoxName"), *facts.sharedBoxes);
  }
  if (facts.adminLoginModeEnabled) {
    composer.addPlain(storedFact("AdminLoginModeEnabled"), *facts.adminLoginModeEnabled);
  }
  if (facts.forms) composer.addList(storedFact("PSFormName"), "form", *facts.forms);
  if (facts.barcodeAreas) {
    composer.addList(storedFact("BarcodeAreaDefName"), "barcode area", *facts.barcodeAreas);
  }
  if (facts.colorProfiles) {
    composer.addList(storedFact("ColorProfileName"), "colour profile", *facts.colorProfiles);
  }
  return composer.result();
}

const UpdateLine* firstNotStored(const std::vector<UpdateLine>& lines, const StoredLines& stored) {
  const auto missing = std::find_if(lines.begin(), lines.end(), [&](const UpdateLine& line) {
    return storedValue(stored, line.keyword) != line.value;
  });
  return missing != lines.end() ? &*missing : nullptr;
}

}  // namespace kelm::ctl
