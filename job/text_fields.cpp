// The custom texts of a job.
// SPDX-License-Identifier: Apache-2.0
#include "job/text_fields.hpp"

#include "base/hex_text.hpp"
#include "job/custom_text.hpp"
#include "job/ppd_choices.hpp"

namespace kelm::job {

bool TextField::isValid(const PrintJobData& job) const {
  switch (rule) {
    case kForbiddenSet:
      return isValidateCustomTextValue(&job, key, offWord, min, max, forbidden);
    case kProfileSet:
      return isValidateCustomProfileTextValue(&job, key, offWord, min, max);
    case kSecretNumSet:
      return isValidateCustomSecretNumTextValue(&job, key, offWord, min, max);
  }
  return false;
}

std::string TextField::rawText(const PrintJobData& job) const {
  std::string text;
  getCustomTextValue(&job, key, text, base::kTextBufferSize);
  return text;
}

std::string TextField::hexText(const PrintJobData& job, const std::string& defaultText) const {
  std::string hex;
  getCustomTextHexValue(&job, key, hex, base::kTextBufferSize, defaultText);
  return hex;
}

std::string TextField::validHexText(const PrintJobData& job) const {
  return isValid(job) ? hexText(job) : std::string();
}

const char* TextField::namedChoice(const PrintJobData& job) const {
  return checkPPDKeywordWithLocalizeText(&job, key, rawText(job).c_str());
}

}  // namespace kelm::job
