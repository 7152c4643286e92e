// The language in which the print system's library localises for this job.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::platform {

class JobLanguage {
 public:
  virtual ~JobLanguage() = default;

  // Makes `language` (a locale name or language tag, UTF-8) the one that later PPD localisation of
  // this process uses. Cannot fail: a language that nobody knows is localised as English.
  virtual void prefer(const char* language) = 0;
};

}  // namespace kelm::platform
