// Records that are made from texts, and what is in them.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "ppdtext/kelm_ppd.hpp"
#include "ppdtext/model.hpp"
#include "ppdtext/record.hpp"
#include "ppdtext/record_parts.hpp"
#include "ppdtext/unicode_text.hpp"

namespace kelm::ppdtext {

// The record of a file of this text; null when there is none.
inline Record recordOf(std::string_view utf8) {
  const std::u16string text = toUtf16(utf8).value();
  const auto model = modelOf(readPart(text));
  return Record(model ? buildRecord(*model, std::calloc) : nullptr);
}

// The choices of the record's option of this keyword as "choice/text=code", "-" for no code.
inline std::vector<std::string> choicesIn(const Record& record, const char* option) {
  std::vector<std::string> lines;
  const ppd_option_t* found = KelmPPD::ppdFindOption_optionKey_(record.get(), option);
  if (found == nullptr) return {"no such option"};
  for (const ppd_choice_t& choice : choicesOf(*found)) {
    lines.push_back(std::string(choice.choice) + "/" + choice.text + "=" +
                    (choice.code == nullptr ? "-" : choice.code));
  }
  return lines;
}

// The attributes of the record as "name=value".
inline std::vector<std::string> attributesIn(const Record& record) {
  std::vector<std::string> lines;
  for (const ppd_attr_t* attribute : attributesOf(*record)) {
    lines.push_back(std::string(attribute->name) + "=" + attribute->value);
  }
  return lines;
}

// The keywords of the options of each group, in order, with spaces between them.
inline std::vector<std::string> optionsByGroup(const Record& record) {
  std::vector<std::string> groups;
  for (const ppd_group_t& group : groupsOf(*record)) {
    groups.emplace_back();
    for (const ppd_option_t& option : optionsOf(group)) {
      groups.back() += (groups.back().empty() ? "" : " ") + std::string(option.keyword);
    }
  }
  return groups;
}

}  // namespace kelm::ppdtext
