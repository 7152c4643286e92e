// Which language a PPD is shown in: it depends on the system's version and the user's languages.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/language.hpp"

#include "ppdtext/kelm_ppd.hpp"

namespace kelm::ppdtext {
namespace {

// From this version on, languages are named with their region.
constexpr std::int32_t kRegionNamed = 12;

// From this version on, Hong Kong's Chinese is named with its script.
constexpr std::int32_t kHongKongScript = 11;

constexpr std::int32_t kWholeIdentifier = 1;

constexpr const char* kEnglish = "en";

// The name in system versions that do not name regions.
std::string oldForm(const std::string& language, const SystemVersion& version) {
  return version.isAtLeast10(kHongKongScript) && language == "zh-HK" ? "zh-Hant-HK" : language;
}

bool isTraditionalChinese(std::string_view language) {
  return language == "zh-Hant" || language == "zh_HANT" || language == "zh-Hant_CN";
}

// Hong Kong's own texts, else Taiwan's.
std::string traditionalChinese(std::string_view wholeIdentifier) {
  return wholeIdentifier == "zh-HK" || wholeIdentifier == "zh-Hant-HK" ? "zh_HK" : "zh_TW";
}

}  // namespace

SystemVersion systemVersion() {
  SystemVersion version;
  KelmPPD::getSystemVersion_middle_minor_(&version.major, &version.middle, &version.minor);
  return version;
}

std::string languageInForm(const std::vector<std::string>& languages, const SystemVersion& version,
                           std::int32_t form, std::size_t priority) {
  const std::string& language = languages.at(priority);
  if (!version.isAtLeast10(kRegionNamed)) return oldForm(language, version);
  return form == kWholeIdentifier ? language : language.substr(0, language.rfind('-'));
}

std::string languageForRecord(ppd_file_t* ppd, const std::vector<std::string>& languages,
                              const SystemVersion& version) {
  std::string language = languageInForm(languages, version, 0, 0);
  if (language == "en_US") language = kEnglish;
  if (language == "zh-Hans" || language == "zh_HANS") language = "zh_CN";
  if (isTraditionalChinese(language)) {
    language = traditionalChinese(languageInForm(languages, version, kWholeIdentifier, 0));
  }
  return KelmPPD::isSupportLanguage_ppd_(language, ppd) ? language : kEnglish;
}

}  // namespace kelm::ppdtext
