// The user's languages: the locale environment, as BCP 47 tags.
// SPDX-License-Identifier: Apache-2.0
#include <cstdlib>
#include <string_view>

#include "platform/posix/posix_platform.hpp"

namespace kelm::platform::posix_platform {
namespace {

struct Named {
  std::string_view name;
  std::string_view script;
};

// Language tags name the script. In locale names it follows from the region (Chinese) or the
// modifier (other languages).
constexpr Named kTraditionalRegions[] = {{"TW", "Hant"}, {"HK", "Hant"}, {"MO", "Hant"}};
constexpr Named kScriptModifiers[] = {
    {"latin", "Latn"}, {"cyrillic", "Cyrl"}, {"devanagari", "Deva"}};

template <std::size_t Count>
std::string_view scriptOf(const Named (&rows)[Count], std::string_view name,
                          std::string_view otherwise) {
  for (const Named& row : rows) {
    if (row.name == name) return row.script;
  }
  return otherwise;
}

// Cuts `text` at the first `mark`; returns what followed it, empty without a mark.
std::string_view cutAt(std::string_view& text, char mark) {
  const std::size_t at = text.find(mark);
  if (at == std::string_view::npos) return {};
  const std::string_view rest = text.substr(at + 1);
  text = text.substr(0, at);
  return rest;
}

// `name` is a locale name: language[_REGION][.codeset][@modifier]. English when it has
// no language.
std::string languageTag(std::string_view name) {
  const std::string_view modifier = cutAt(name, '@');
  cutAt(name, '.');
  const std::string_view region = cutAt(name, '_');
  if (name.empty() || name == "C" || name == "POSIX") return "en";
  std::string_view script = scriptOf(kScriptModifiers, modifier, {});
  if (name == "zh") script = scriptOf(kTraditionalRegions, region, "Hans");
  std::string tag(name);
  if (!script.empty()) tag.append("-").append(script);
  if (!region.empty()) tag.append("-").append(region);
  return tag;
}

// The first variable that is set and not empty, as setlocale(3) chooses for messages.
std::string_view messagesLocale() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return value;
  }
  return "C";
}

// The priority list of gettext: names between colons.
void appendPriorityList(std::vector<std::string>& tags) {
  const char* value = std::getenv("LANGUAGE");
  std::string_view names = value != nullptr ? value : "";
  while (!names.empty()) {
    std::string_view name = names;
    names = cutAt(name, ':');
    if (!name.empty()) tags.push_back(languageTag(name));
  }
}

}  // namespace

std::vector<std::string> PosixPreferredLanguages::tags() {
  const std::string_view locale = messagesLocale();
  std::vector<std::string> tags;
  if (locale != "C" && locale != "POSIX") appendPriorityList(tags);
  tags.push_back(languageTag(locale));
  return tags;
}

}  // namespace kelm::platform::posix_platform
