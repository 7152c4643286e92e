// Free texts are checked before they are sent to the printer.
// SPDX-License-Identifier: Apache-2.0
#include "job/validators.hpp"

#include <optional>
#include <string>
#include <string_view>

#include "base/hex_text.hpp"
#include "base/utf.hpp"
#include "job/custom_text.hpp"
#include "platform/platform.hpp"

namespace kelm::job {
namespace {

void logError(const std::string& message) { platform::platform().systemLog->error(message); }

bool lengthIsWithin(std::string_view text, std::size_t min, std::size_t max) {
  const std::size_t length = base::utf16Length(text).value_or(0);
  if (length >= min && length <= max) return true;
  logError("[DEBUG] found validate max min : " + std::to_string(length));
  return false;
}

bool hasOnly(std::string_view text, std::string_view allowed) {
  return text.find_first_not_of(allowed) == std::string_view::npos;
}

// The first character of `set` that is in `text`; empty when none is.
std::string_view firstOf(std::string_view set, std::string_view text) {
  while (!set.empty()) {
    const std::string_view character = base::firstCharacter(set);
    if (text.find(character) != std::string_view::npos) return character;
    set.remove_prefix(character.size());
  }
  return {};
}

// The option's custom text; nothing when the option is absent or its text is the off word.
std::optional<std::string> givenText(const PrintJobData* job, const char* key,
                                     const char* offWord) {
  std::string value;
  if (!getOptionValue(job, key, value)) return std::nullopt;
  std::string text;
  getCustomTextValue(job, key, text, base::kTextBufferSize);
  if (text == offWord) return std::nullopt;
  return text;
}

}  // namespace

bool isValidateString(const char* text, std::size_t min, std::size_t max, const char* forbidden) {
  if (!lengthIsWithin(text, min, max)) return false;
  const std::string_view character = firstOf(forbidden, text);
  if (character.empty()) return true;
  logError("[DEBUG] found validate char : " + std::string(character));
  return false;
}

bool isValidateProfileString(const char* text, std::size_t min, std::size_t max) {
  return lengthIsWithin(text, min, max) && hasOnly(text, kProfileCharacters);
}

bool isValidateSecretNumString(const char* text, std::size_t min, std::size_t max) {
  return lengthIsWithin(text, min, max) && hasOnly(text, kSecretNumCharacters);
}

bool isValidateCustomTextValue(const PrintJobData* job, const char* key, const char* offWord,
                               std::size_t min, std::size_t max, const char* forbidden) {
  const auto text = givenText(job, key, offWord);
  return text && isValidateString(text->c_str(), min, max, forbidden);
}

bool isValidateCustomProfileTextValue(const PrintJobData* job, const char* key, const char* offWord,
                                      std::size_t min, std::size_t max) {
  const auto text = givenText(job, key, offWord);
  return text && isValidateProfileString(text->c_str(), min, max);
}

bool isValidateCustomSecretNumTextValue(const PrintJobData* job, const char* key,
                                        const char* offWord, std::size_t min, std::size_t max) {
  const auto text = givenText(job, key, offWord);
  return text && isValidateSecretNumString(text->c_str(), min, max);
}

}  // namespace kelm::job
