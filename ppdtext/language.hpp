// Which language a PPD is shown in: it depends on the system's version and the user's languages.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kelm::ppdtext {

// The defaults are for systems that do not state their version: 11.0.0, the first of the current
// numbering.
struct SystemVersion {
  std::int32_t major = 11;
  std::int32_t middle = 0;
  std::int32_t minor = 0;

  // Whether this is version 10.`middle10` or a later one.
  bool isAtLeast10(std::int32_t middle10) const {
    return major > 10 || (major == 10 && middle >= middle10);
  }
};

SystemVersion systemVersion();

// The entry `priority` of `languages` as `version` names it. Form 1 keeps the whole identifier, any
// other drops its last part (the region). Throws std::out_of_range beyond the list.
std::string languageInForm(const std::vector<std::string>& languages, const SystemVersion& version,
                           std::int32_t form, std::size_t priority);

// The first of `languages` as PPD files name it ("de", "zh_CN", "zh_TW", "zh_HK"); "en" when the
// record's "cupsLanguages" does not name it.
std::string languageForRecord(ppd_file_t* ppd, const std::vector<std::string>& languages,
                              const SystemVersion& version);

}  // namespace kelm::ppdtext
