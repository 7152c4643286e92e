// Any system version, languages of the user, locale, languages of a PPD and translation lines: the
// record is shown in one of its languages or in English, with the texts that a plain search of the
// whole file finds.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/fake/fake_platform.hpp"
#include "platform/system_platform.hpp"
#include "ppdtext/kelm_ppd.hpp"
#include "ppdtext/language.hpp"
#include "ppdtext/localizer.hpp"
#include "ppdtext/record.hpp"
#include "ppdtext/record_parts.hpp"
#include "ppdtext/unicode_text.hpp"
#include "tests/fuzz/fuzz_target.hpp"
#include "tests/support/memory_file.hpp"
#include "tests/unit/ppdtext/plain_reader.hpp"

namespace {

using kelm::tests::expect;
using kelm::tests::nextText;

using namespace kelm;
using namespace kelm::ppdtext;

constexpr char kOptions[] =
    "*OpenUI *Size/Size: PickOne\n*Size A4/Four: \"4\"\n*Size A.5/Five: \"5\"\n*CloseUI: *Size\n"
    "*OpenUI *S.ze/Other: PickOne\n*S.ze On/On: \"1\"\n*CloseUI: *S.ze\n";

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines(1);
  for (const char c : text) {
    if (c == '\n') {
      lines.emplace_back();
    } else {
      lines.back() += c;
    }
  }
  return lines;
}

std::string escaped(const std::string& text) {
  std::string xml;
  for (const char c : text) {
    if (c == '&') {
      xml += "&amp;";
    } else if (c == '<') {
      xml += "&lt;";
    } else {
      xml += c;
    }
  }
  return xml;
}

std::string propertyList(const char* key, const std::string& value) {
  return "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>" + std::string(key) + "</key>" +
         value + "</dict></plist>";
}

// What the system says about itself and the user, in memory: files on a disk would take longer than
// everything that is tested here.
class Facts final : public platform::FileRoot {
 public:
  Facts(const std::string& version, const std::vector<std::string>& languages)
      : version_(version.empty()
                     ? ""
                     : propertyList("ProductVersion", "<string>" + escaped(version) + "</string>")),
        languages_(propertyList("AppleLanguages", "<array>" + strings(languages) + "</array>")) {}

  std::string locate(std::string_view absolutePath) const override {
    if (absolutePath.ends_with("/SystemVersion.plist")) return version_.path();
    if (absolutePath.ends_with("/.GlobalPreferences.plist")) return languages_.path();
    return "/nonexistent";
  }

 private:
  static std::string strings(const std::vector<std::string>& texts) {
    std::string xml;
    for (const std::string& each : texts) xml += "<string>" + escaped(each) + "</string>";
    return xml;
  }

  tests::MemoryFile version_;
  tests::MemoryFile languages_;
};

std::vector<std::string> tagsOfLocale(const std::string& locale, const std::string& list) {
  unsetenv("LC_ALL");
  unsetenv("LC_MESSAGES");
  setenv("LANG", locale.c_str(), 1);
  setenv("LANGUAGE", list.c_str(), 1);
  return platform::systemPlatform().preferredLanguages->tags();
}

struct Shown {
  std::string option;
  std::optional<std::string> choice;
  std::string text;
};

std::vector<Shown> textsOf(const ppd_file_t& ppd) {
  std::vector<Shown> texts;
  for (const ppd_group_t& group : groupsOf(ppd)) {
    for (const ppd_option_t& option : optionsOf(group)) {
      texts.push_back({option.keyword, std::nullopt, option.text});
      for (const ppd_choice_t& choice : choicesOf(option)) {
        texts.push_back({option.keyword, choice.choice, choice.text});
      }
    }
  }
  return texts;
}

void expectTranslations(const std::vector<Shown>& before, const std::vector<Shown>& after,
                        std::u16string_view text, const std::u16string& language) {
  constexpr std::size_t kField = 80;
  expect(before.size() == after.size());
  for (std::size_t i = 0; i < before.size(); ++i) {
    const auto option = toUtf16(before[i].option);
    const auto choice = toUtf16(before[i].choice.value_or(""));
    if (!option || !choice) continue;
    if (!isPlain(*option) || (before[i].choice && !isPlain(*choice))) continue;
    const auto translation = plain::translation(
        text, language, *option, before[i].choice ? OptionalText(*choice) : OptionalText());
    const std::string expected = translation ? toUtf8(*translation) : before[i].text;
    expect(after[i].text == expected.substr(0, kField).c_str());
  }
}

}  // namespace

// Version, the user's languages (lines), locale, list of languages, the PPD's languages, each up to
// a zero byte, and the translation lines.
FUZZ_TARGET(language) {
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  const std::string version = nextText(rest);
  const std::vector<std::string> languages = linesOf(nextText(rest));
  const std::string locale = nextText(rest);
  const std::vector<std::string> tags = tagsOfLocale(locale, nextText(rest));
  const std::string ppdLanguages = nextText(rest);
  expect(!tags.empty() && std::ranges::none_of(tags, &std::string::empty));

  platform::FakePlatform platform;
  platform.homeDirectory.home = "/home";
  platform.preferredLanguages.preferred = tags;
  Facts facts(version, languages);
  platform::Platform set = platform::platform();
  set.fileRoot = &facts;
  const platform::ScopedPlatform scope(set);

  const auto known = KelmPPD::getLanguageArrayFromGlobalPreference();
  expect(!known.empty());
  for (std::size_t i = 0; i < known.size(); ++i)
    KelmPPD::getSystemLanguage_priority_(static_cast<int>(i % 2), i);
  try {
    KelmPPD::getSystemLanguage_priority_(0, known.size());
    std::abort();
  } catch (const std::out_of_range&) {
  }

  const auto text = toUtf16("*cupsLanguages: \"" + ppdLanguages + "\"\n" + kOptions +
                            std::string(rest.substr(0, 2000)));
  if (!text) return 0;
  const Record record(recordOf(*text));
  if (record == nullptr) return 0;
  const std::string language = KelmPPD::ppdGetLanguage_(record.get());
  expect(language == "en" || KelmPPD::isSupportLanguage_ppd_(language, record.get()));
  const auto unicode = toUtf16(language);
  expect(unicode.has_value());
  const std::vector<Shown> before = textsOf(*record);
  if (localizeRecord(*record, *text, *unicode) && isPlain(*unicode)) {
    expectTranslations(before, textsOf(*record), *text, *unicode);
  }
  return 0;
}
