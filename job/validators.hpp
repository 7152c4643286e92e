// Free texts are checked before they are sent to the printer; what fails is never sent.
//
// Lengths are in UTF-16 code units, both bounds inclusive; a text that is not valid UTF-8 has
// length 0.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

#include "job/print_job.hpp"

namespace kelm::job {

// The characters that names, titles, comments and forms must not have.
inline constexpr char kForbiddenCharacters[] = "“/[]:+¦<>=;,*?\\‘";
// The second "K" changes nothing.
inline constexpr char kProfileCharacters[] =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLKMNOPQRSTUVWXYZ0123456789_-.\t ";
inline constexpr char kSecretNumCharacters[] = "0123456789";

// Whether `text` has from `min` to `max` code units and none of the characters of `forbidden`
// (UTF-8). The system log says which bound or which character (the first of the set) it failed at.
bool isValidateString(const char* text, std::size_t min, std::size_t max, const char* forbidden);

// Whether `text` has from `min` to `max` code units (if not, the system log says so) and only
// characters of the profile set, or only digits.
bool isValidateProfileString(const char* text, std::size_t min, std::size_t max);
bool isValidateSecretNumString(const char* text, std::size_t min, std::size_t max);

// The same for the text of the job option `key` (custom_text.hpp). Also false when the option is
// absent or its text is `offWord`, which means that it is not set.
bool isValidateCustomTextValue(const PrintJobData* job, const char* key, const char* offWord,
                               std::size_t min, std::size_t max, const char* forbidden);
bool isValidateCustomProfileTextValue(const PrintJobData* job, const char* key, const char* offWord,
                                      std::size_t min, std::size_t max);
bool isValidateCustomSecretNumTextValue(const PrintJobData* job, const char* key,
                                        const char* offWord, std::size_t min, std::size_t max);

}  // namespace kelm::job
