// A printer's answers as keywords and values of the queue's PPD.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/update_lines.hpp"

#include <cups/http.h>

#include <algorithm>
#include <numeric>
#include <string_view>

#include "base/mac_address.hpp"
#include "base/utf.hpp"
#include "ctl/safe_text.hpp"
#include "job/ppd_calls.hpp"
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

std::string storedValue(ppd_file_t* ppd, const std::string& keyword) {
  if (ppd == nullptr) return {};
  const ppd_attr_t* attribute = job::r_ppdFindAttr(ppd, keyword.c_str(), nullptr);
  return attribute != nullptr && attribute->value != nullptr ? attribute->value : "";
}

// The beginning of a text that is too long to be shown whole.
std::string beginningOf(std::string_view text) {
  std::string_view rest = text;
  for (std::size_t i = 0; i < kShownCharacters && !rest.empty(); ++i) {
    rest.remove_prefix(base::firstCharacter(rest).size());
  }
  const std::string_view shown = text.substr(0, text.size() - rest.size());
  return "\"" + safeText(shown) + (rest.empty() ? "\"" : "...\"");
}

class Composer {
 public:
  explicit Composer(ppd_file_t* stored) : stored_(stored) {}

  void addPlain(const StoredFact& fact, bool value) { add(fact.keyword, value ? "1" : "0"); }

  void addText(const StoredFact& fact, const char* what, const std::string& text) {
    const std::string value = base64Of(text);
    if (value.size() <= roomFor(fact.keyword)) return add(fact.keyword, value);
    refuse(what, text);
  }

  // `texts`: what the entries are to be, from index 0 on; empty ones are none.
  void addList(const StoredFact& fact, const char* what, const Texts& texts) {
    for (int index = 0; index <= fact.lastIndex; ++index) {
      const auto position = static_cast<std::size_t>(index);
      addEntry(fact, what, index, position < texts.size() ? texts[position] : "");
    }
  }

  UpdateLines result() {
    const std::size_t size = std::accumulate(
        lines_.begin(), lines_.end(), std::size_t{0}, [](std::size_t sum, const UpdateLine& line) {
          return sum + line.keyword.size() + line.value.size() + 2;
        });
    if (problem_.empty() && size > kMostOfAllLines) {
      problem_ = "the printer's lists take " + std::to_string(size) +
                 " bytes, and an update job carries " + std::to_string(kMostOfAllLines) +
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

  ppd_file_t* stored_;
  std::vector<UpdateLine> lines_;
  std::string problem_;
};

Texts namesInUse(const std::vector<SharedBox>& boxes) {
  Texts names;
  for (const SharedBox& box : boxes) names.push_back(box.inUse() ? box.name : "");
  return names;
}

}  // namespace

std::optional<std::string> storableMacAddress(const PrinterFacts& facts) {
  if (!facts.macAddress) return std::nullopt;
  const auto address = base::macAddressOf(*facts.macAddress);
  return address && !base::isNone(*address) ? facts.macAddress : std::nullopt;
}

UpdateLines updateLinesFor(const PrinterFacts& facts, const std::string& address,
                           const std::string& community, ppd_file_t* stored) {
  Composer composer(stored);
  composer.addPlain(storedFact("PPDOptionsUpdated"), true);
  composer.addPlain(storedFact("IsCustomSnmpCommunity"), community != kDefaultCommunity);
  composer.addText(storedFact("SnmpCommunityName"), "community", community);
  if (const auto macAddress = storableMacAddress(facts)) {
    composer.addText(storedFact("PrinterMacAddress"), "MAC address", *macAddress);
  }
  composer.addText(storedFact("PrinterIPAddress"), "address", address);
  if (facts.sharedBoxes) {
    composer.addList(storedFact("SharedBoxName"), "shared box", namesInUse(*facts.sharedBoxes));
  }
  composer.addPlain(storedFact("AdminLoginModeEnabled"), facts.adminLoginModeEnabled);
  if (facts.forms) composer.addList(storedFact("PSFormName"), "form", *facts.forms);
  if (facts.barcodeAreas) {
    composer.addList(storedFact("BarcodeAreaDefName"), "barcode area", *facts.barcodeAreas);
  }
  if (facts.colorProfiles) {
    composer.addList(storedFact("ColorProfileName"), "colour profile", *facts.colorProfiles);
  }
  return composer.result();
}

const UpdateLine* firstNotStored(const std::vector<UpdateLine>& lines, ppd_file_t* ppd) {
  const auto missing = std::find_if(lines.begin(), lines.end(), [ppd](const UpdateLine& line) {
    return storedValue(ppd, line.keyword) != line.value;
  });
  return missing != lines.end() ? &*missing : nullptr;
}

}  // namespace kelm::ctl
