// The language in which libcups localises PPDs for this job.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::platform {

class JobLanguage {
 public:
  virtual ~JobLanguage() = default;

  // Makes later PPD localisation in this process use `language` (a locale name or language tag,
  // UTF-8). Cannot fail: an unknown language is localised as English.
  virtual void prefer(const char* language) = 0;
};

}  // namespace kelm::platform
