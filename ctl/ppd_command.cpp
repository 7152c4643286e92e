// kelmctl ppd: what a PPD offers, in the user's language, as text or as JSON.
// SPDX-License-Identifier: Apache-2.0
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "ctl/commands.hpp"
#include "ctl/exit_status.hpp"
#include "ctl/json.hpp"
#include "ctl/message.hpp"
#include "ctl/safe_text.hpp"
#include "ppdtext/kelm_ppd.hpp"
#include "ppdtext/language.hpp"
#include "ppdtext/localizer.hpp"
#include "ppdtext/record.hpp"
#include "ppdtext/record_parts.hpp"
#include "ppdtext/text_file.hpp"
#include "ppdtext/unicode_text.hpp"

namespace kelm::ctl {
namespace {

using ppdtext::KelmPPD;

constexpr const char* kUnreadable =
    ": cannot be read as UTF-8 text; check the path, and unpack a compressed PPD";
constexpr const char* kNoOption =
    ": no option with a text (*OpenUI *Key/Text: ...); there is nothing to show";
constexpr const char* kNoChoice =
    " has no choice; it needs one with a text and its code on one line (*Key choice/Text: "
    "\"code\") "
    "before its *CloseUI: *Key, and lines that end with a line feed alone";
constexpr const char* kTooSlow =
    " or an earlier one takes too long: its keyword has pattern characters (such as * + ( or |)";
constexpr const char* kTooMany =
    " makes more than a million choices: groups or options of the same names are repeated";

constexpr const char* kTranslationsTooSlow =
    ": translations take too long to find: keywords have pattern characters (such as * + ( or |)";

struct Arguments {
  std::string file;
  std::optional<std::string> language;
  bool json = false;
};

// A record in a language, with its defaults marked.
struct Shown {
  ppdtext::Record record;
  std::string language;
};

// A translation that is too long for its field may be cut within a character. The incomplete
// character is not shown.
std::string wholeText(const char* text) {
  const std::string_view all = text;
  for (std::size_t length = all.size(); length > 0; --length) {
    if (ppdtext::toUtf16(all.substr(0, length))) return std::string(all.substr(0, length));
  }
  return "";
}

std::string sentenceOf(const ppdtext::ReadProblem& problem) {
  const std::string option = ", line " + std::to_string(problem.line) + ": option \"" +
                             ppdtext::toUtf8(problem.option) + '"';
  switch (problem.kind) {
    case ppdtext::ReadProblem::kNoOption:
      return kNoOption;
    case ppdtext::ReadProblem::kNoChoice:
      return option + kNoChoice;
    case ppdtext::ReadProblem::kTooSlow:
      return option + kTooSlow;
    case ppdtext::ReadProblem::kTooMany:
      return option + kTooMany;
    case ppdtext::ReadProblem::kNone:
      break;
  }
  return ": out of memory";
}

std::string readable(const char* text) { return safeText(wholeText(text)); }

void printChoice(std::ostream& out, const ppd_choice_t& choice) {
  out << (choice.marked != 0 ? "    * " : "      ") << readable(choice.text) << "  ("
      << readable(choice.choice) << ")\n";
}

void printOption(std::ostream& out, const ppd_option_t& option) {
  out << "  " << readable(option.text) << "  (" << readable(option.keyword) << ")\n";
  for (const ppd_choice_t& choice : ppdtext::choicesOf(option)) printChoice(out, choice);
}

// Groups have no names in the record, so they are numbered.
void printReadable(std::ostream& out, const Shown& shown) {
  out << "Language: " << safeText(shown.language) << '\n';
  int number = 0;
  for (const ppd_group_t& group : ppdtext::groupsOf(*shown.record)) {
    ++number;
    if (group.num_options == 0) continue;
    out << "\nGroup " << number << '\n';
    for (const ppd_option_t& option : ppdtext::optionsOf(group)) printOption(out, option);
  }
}

Json jsonOf(const ppd_choice_t& choice) {
  return {{"choice", choice.choice},
          {"text", wholeText(choice.text)},
          {"code", choice.code == nullptr ? Json() : Json(choice.code)},
          {"marked", choice.marked != 0}};
}

Json jsonOf(const ppd_option_t& option) {
  Json choices = Json::array();
  for (const ppd_choice_t& choice : ppdtext::choicesOf(option)) choices.push_back(jsonOf(choice));
  return {{"keyword", option.keyword},
          {"text", wholeText(option.text)},
          {"default", option.defchoice},
          {"choices", choices}};
}

Json jsonOf(const ppd_group_t& group) {
  Json options = Json::array();
  for (const ppd_option_t& option : ppdtext::optionsOf(group)) options.push_back(jsonOf(option));
  return {{"options", options}};
}

void printJson(std::ostream& out, const Shown& shown) {
  Json groups = Json::array();
  for (const ppd_group_t& group : ppdtext::groupsOf(*shown.record)) groups.push_back(jsonOf(group));
  Json attributes = Json::array();
  for (const ppd_attr_t* attribute : ppdtext::attributesOf(*shown.record)) {
    const char* value = attribute->value == nullptr ? "" : attribute->value;
    attributes.push_back({{"name", attribute->name}, {"value", value}});
  }
  const Json object{{"language", shown.language}, {"groups", groups}, {"attributes", attributes}};
  out << textOf(object, JsonLayout::kIndented) << '\n';
}

// `language` replaces the user's first one.
std::string languageFor(ppd_file_t* ppd, const std::optional<std::string>& language) {
  std::vector<std::string> languages = KelmPPD::getLanguageArrayFromGlobalPreference();
  if (language) languages.front() = *language;
  return ppdtext::languageForRecord(ppd, languages, ppdtext::systemVersion());
}

int showPpd(const Arguments& arguments, const Console& console) {
  const auto text = ppdtext::readTextFile(arguments.file.c_str());
  ppdtext::ReadProblem problem;
  Shown shown{ppdtext::Record(text ? ppdtext::recordOf(*text, &problem) : nullptr), ""};
  if (shown.record == nullptr) {
    return fail(console, arguments.file + (text ? sentenceOf(problem) : kUnreadable));
  }
  shown.language = languageFor(shown.record.get(), arguments.language);
  const auto language = ppdtext::toUtf16(shown.language);
  if (language && !ppdtext::localizeRecord(*shown.record, *text, *language)) {
    return fail(console, arguments.file + kTranslationsTooSlow);
  }
  KelmPPD::ppdMarkDefaults_(shown.record.get());
  (arguments.json ? printJson : printReadable)(console.out, shown);
  return kExitDone;
}

}  // namespace

Action declarePpd(ArgumentList& list) {
  auto arguments = std::make_shared<Arguments>();
  list.add("FILE", arguments->file, "The PPD file").valueName("").required();
  list.add("--language", arguments->language, "The language to show, such as de or zh-Hant-TW")
      .valueName("TAG");
  list.addFlag("--json", arguments->json, "One JSON object, for programs");
  return [arguments](const Console& console) { return showPpd(*arguments, console); };
}

}  // namespace kelm::ctl
