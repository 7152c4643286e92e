// Which language a PPD is shown in: the rules over the system's version and the user's languages.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kelm::ppdtext {

// Where the system does not say its version, the rules are those of the first one of the present
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

// The entry `priority` of `languages` as version `version` names it. Form 1 keeps the whole
// identifier, any other leaves out its last part (the region). An entry that is not there throws
// std::out_of_range.
std::string languageInForm(const std::vector<std::string>& languages, const SystemVersion& version,
                           std::int32_t form, std::size_t priority);

// The first of `languages` in the names of PPD files ("de", "zh_CN", "zh_TW", "zh_HK"); "en" when
// the file does not name it among its "cupsLanguages".
std::string languageForRecord(ppd_file_t* ppd, const std::vector<std::string>& languages,
                              const SystemVersion& version);

}  // namespace kelm::ppdtext
