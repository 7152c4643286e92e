// The custom texts of a job, each with the printer's limits: the header and the PostScript use the
// same rows.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>

#include "job/print_job.hpp"
#include "job/validators.hpp"

namespace kelm::job {

enum class TextRule { kForbiddenSet, kProfileSet, kSecretNumSet };

struct TextField {
  const char* key;
  const char* offWord;  // the text that means "not set"
  std::size_t min;      // UTF-16 code units, inclusive
  std::size_t max;
  TextRule rule;
  const char* forbidden = "";

  // Whether the job has a text for this field that may be sent.
  bool isValid(const PrintJobData& job) const;

  // The job's text unchanged; empty when there is none.
  std::string rawText(const PrintJobData& job) const;

  // The job's text in hex; without one, `defaultText` in hex. Empty when that does not fit into a
  // text buffer.
  std::string hexText(const PrintJobData& job, const std::string& defaultText = "") const;

  // The job's text in hex when it may be sent; empty otherwise.
  std::string validHexText(const PrintJobData& job) const;

  // The choice of the PPD's option that the job's text names, by its name or its localised label;
  // null when there is none. Lives as long as the job's PPD.
  const char* namedChoice(const PrintJobData& job) const;
};

using enum TextRule;
inline constexpr TextField kOwnerName{"QVOwnerNameInfo",   "OFF", 1, 20, kForbiddenSet,
                                      kForbiddenCharacters};
inline constexpr TextField kJobName{"QVJobNameInfo",     "OFF", 1, 255, kForbiddenSet,
                                    kForbiddenCharacters};
inline constexpr TextField kSecretNum{"QVSecretNumInfo", "OFF", 0, 8, kSecretNumSet};  // 0: empty
inline constexpr TextField kJobComment{"QVJobComment",      "OFF", 1, 128, kForbiddenSet,
                                       kForbiddenCharacters};
inline constexpr TextField kBarcodeSelection{"QVBarcodeSelection", "OFF", 1, 30, kForbiddenSet};
inline constexpr TextField kOutputProfile{"QVOutputProfileSelection", "Auto", 1, 255, kProfileSet};
inline constexpr TextField kFormSelect1{"QVFormSelect1",
                                        "Off",
                                        1,
                                        128,  // "Off", not "OFF"
                                        kForbiddenSet,
                                        kForbiddenCharacters};
inline constexpr TextField kFormSelect2{"QVFormSelect2",     "Off", 1, 128, kForbiddenSet,
                                        kForbiddenCharacters};

}  // namespace kelm::job
