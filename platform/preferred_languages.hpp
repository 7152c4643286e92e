// The preferred languages of the user who runs this process.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace kelm::platform {

class PreferredLanguages {
 public:
  virtual ~PreferredLanguages() = default;

  // BCP 47 tags, most preferred first ("de-DE", "zh-Hant-TW", "en"); never empty.
  virtual std::vector<std::string> tags() = 0;
};

}  // namespace kelm::platform
