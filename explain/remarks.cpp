// What is wrong with a job's options before it is printed.
// SPDX-License-Identifier: Apache-2.0
#include "explain/remarks.hpp"

#include <cups/cups.h>
#include <strings.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <numeric>
#include <optional>
#include <span>

#include "base/utf.hpp"
#include "explain/row_facts.hpp"
#include "explain/standard_names.hpp"
#include "job/custom_text.hpp"
#include "job/ppd_calls.hpp"
#include "job/text_fields.hpp"
#include "psrewrite/features.hpp"
#include "stdoptions/standard_choices.hpp"
#include "stdoptions/standard_options.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::explain {
namespace {

constexpr std::size_t kLongestCompared = 128;
constexpr std::size_t kLeastFront = 4;   // of a name that is cut off
constexpr double kPaperTolerance = 2.0;  // points
constexpr char kDialogOnly[] = "has an effect only in jobs of the maker's dialog (PrintPDE)";

constexpr const job::TextField* kTextFields[] = {
    &job::kOwnerName,        &job::kJobName,       &job::kSecretNum,   &job::kJobComment,
    &job::kBarcodeSelection, &job::kOutputProfile, &job::kFormSelect1, &job::kFormSelect2,
};

const job::TextField* textField(std::string_view key) {
  for (const job::TextField* field : kTextFields) {
    if (key == field->key) return field;
  }
  return nullptr;
}

const ppd_option_t* ppdOption(const Request& request, const std::string& name) {
  return request.ppd == nullptr ? nullptr : job::r_ppdFindOption(request.ppd, name.c_str());
}

// The option's row of the header, for a kind of job.
std::optional<RowFacts> rowOf(std::string_view name, bool isDialogJob) {
  std::optional<RowFacts> found;
  pjl::forEachStep(isDialogJob, [&](const pjl::HeaderStep& step) {
    RowFacts row = factsOf(step, isDialogJob);
    if (!found && row.hasOption(name)) found = std::move(row);
  });
  return found;
}

bool startsWithAny(std::string_view name, std::span<const std::string_view> fronts) {
  return std::ranges::any_of(fronts,
                             [&](std::string_view front) { return name.starts_with(front); });
}

// The standard name that this is in any letter case; null if it is none.
const std::string_view* standardName(std::string_view name) {
  const auto found = std::ranges::find_if(kStandardNames, [&](std::string_view standard) {
    return standard.size() == name.size() &&
           strncasecmp(standard.data(), name.data(), name.size()) == 0;
  });
  return found == std::end(kStandardNames) ? nullptr : &*found;
}

// CUPS' filters and clients add options of their own to a job.
bool isOfCups(const std::string& name) {
  constexpr std::string_view kFronts[] = {"com.apple.", "AP_", "date-time-at-", "time-at-",
                                          "Destination"};
  constexpr std::string_view kNames[] = {"PrintPDE", "UpdatePPDOptions"};
  if (startsWithAny(name, kFronts) || standardName(name) != nullptr ||
      std::ranges::find(kNames, name) != std::end(kNames)) {
    return true;
  }
  // An option that libcups knows has a type of its own; any other one becomes a name.
  ipp_t* const job = ippNewRequest(IPP_OP_CREATE_JOB);
  const ipp_attribute_t* attribute = cupsEncodeOption(job, IPP_TAG_JOB, name.c_str(), "a b");
  const bool known = attribute != nullptr &&
                     ippGetValueTag(const_cast<ipp_attribute_t*>(attribute)) != IPP_TAG_NAME;
  ippDelete(job);
  return known;
}

bool sameWord(std::string_view one, std::string_view other) {
  return editDistance(one, other) == 0;
}

std::string nearestOf(std::string_view text, const std::vector<std::string>& candidates) {
  const std::string* nearest = nullptr;
  std::size_t least = std::max<std::size_t>(text.size() / 3, 1) + 1;
  for (const std::string& candidate : candidates) {
    std::size_t distance = editDistance(text, candidate);
    const bool isCutOff = text.size() >= kLeastFront && candidate.size() > text.size() &&
                          sameWord(text, std::string_view(candidate).substr(0, text.size()));
    if (isCutOff) distance = std::min<std::size_t>(distance, 1);
    if (distance >= least) continue;
    least = distance;
    nearest = &candidate;
  }
  return nearest == nullptr ? "" : *nearest;
}

// The PPD's names of options, and the standard ones.
std::vector<std::string> knownNames(const Request& request) {
  std::vector<std::string> keywords(std::begin(kStandardNames), std::end(kStandardNames));
  if (request.ppd == nullptr) return keywords;
  for (const ppd_group_t& group :
       std::span(request.ppd->groups, static_cast<std::size_t>(request.ppd->num_groups))) {
    for (const ppd_option_t& option :
         std::span(group.options, static_cast<std::size_t>(group.num_options))) {
      keywords.emplace_back(option.keyword);
    }
  }
  return keywords;
}

std::vector<std::string> choicesOf(const ppd_option_t& option) {
  std::vector<std::string> choices;
  for (const ppd_choice_t& choice :
       std::span(option.choices, static_cast<std::size_t>(option.num_choices))) {
    choices.emplace_back(choice.choice);
  }
  return choices;
}

// Why the printer does not get a custom text; empty when it does.
std::string textProblem(const Request& request, const Option& option, const job::TextField& field) {
  cups_option_t one{const_cast<char*>(option.name.c_str()),
                    const_cast<char*>(option.value.c_str())};
  job::PrintJobData job;
  job.ppd = request.ppd;
  job.numOptions = 1;
  job.options = &one;
  const std::string text = job::customText(option.value);
  if (text == field.offWord || field.namedChoice(job) != nullptr) return {};
  if (field.isValid(job)) {
    const std::size_t dot = option.value.find("Custom.");
    const bool cut = dot != std::string::npos && option.value.substr(dot + 7) != text;
    return cut ? "is cut at its full stop: the printer gets \"" + text + "\"" : "";
  }
  const auto length = base::utf16Length(text);
  if (!length) return "is not valid UTF-8, and the printer does not get it";
  if (*length < field.min || *length > field.max) {
    return "has " + std::to_string(*length) + " characters, and the printer accepts " +
           std::to_string(field.min) + " to " + std::to_string(field.max);
  }
  if (field.rule == job::kSecretNumSet) return "may have digits only";
  if (field.rule == job::kProfileSet) {
    return R"(may have ASCII letters, digits, "_", "-", ".", tabs and spaces only)";
  }
  for (std::string_view set = field.forbidden; !set.empty();) {
    const std::string_view character = base::firstCharacter(set);
    if (text.find(character) != std::string::npos) {
      return "has the character \"" + std::string(character) +
             "\", which the printer does not accept";
    }
    set.remove_prefix(character.size());
  }
  return "is not a text that the printer accepts";
}

bool isNumber(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// Whether the option has a custom value of this kind.
bool isCustomValue(const Request& request, const Option& option) {
  ppd_coption_t* custom = ppdFindCustomOption(request.ppd, option.name.c_str());
  if (custom == nullptr) return false;
  if (option.value.starts_with("Custom.") || option.value.starts_with('{')) return true;
  const ppd_cparam_t* parameter = ppdFirstCustomParam(custom);
  return parameter != nullptr && parameter->type == PPD_CUSTOM_INT && isNumber(option.value);
}

// Whether the filter reads the value itself, although the PPD's option has no such choice.
bool isReadByTheFilter(const Request& request, const Option& option) {
  if (request.isDialogJob()) return false;
  return std::ranges::any_of(stdoptions::kStandardOptions, [&](const auto& standard) {
    return standard.source == stdoptions::Source::kJob && option.name == standard.keyword &&
           std::ranges::any_of(standard.choices,
                               [&](const auto& row) { return option.value == row.choice; });
  });
}

// Whether the job's header is the same with the option in another spelling. Marks the request's
// choices again.
bool hasSameEffect(const Request& request, const Option& option, const Option& spelled) {
  Request other = request;
  std::ranges::replace(other.options, option, spelled);
  const Outcome one = outcomeOf(other);
  const Outcome two = outcomeOf(request);
  return std::ranges::equal(one.header, two.header, [](const auto& a, const auto& b) {
    return a.variable == b.variable && a.value == b.value;
  });
}

// In another letter case, a choice counts where CUPS and the filter take it.
std::optional<Remark> unlessChoice(const Request& request, const Option& option,
                                   std::vector<std::string> choices) {
  for (const std::string& choice : choices) {
    if (choice == option.value) return std::nullopt;
    if (sameWord(choice, option.value) &&
        hasSameEffect(request, option, {option.name, choice, option.giver})) {
      return std::nullopt;
    }
  }
  std::string nearest = nearestOf(option.value, choices);
  return Remark{option, "is not a choice of this option", std::move(choices), std::move(nearest)};
}

std::optional<Remark> remarkOnChoice(const Request& request, const Option& option,
                                     const ppd_option_t& known) {
  if (const job::TextField* field = textField(option.name)) {
    const std::string problem = textProblem(request, option, *field);
    if (problem.empty()) return std::nullopt;
    return Remark{option, problem, {}, ""};
  }
  const auto row = rowOf(option.name, request.isDialogJob());
  const bool isCopied = row && row->kind == ValueKind::kUpperCase;
  const bool isDialogs = request.isDialogJob() && row && row->hasChoice(option.value);
  if (isCopied || isDialogs || isCustomValue(request, option) ||
      isReadByTheFilter(request, option)) {
    return std::nullopt;
  }
  return unlessChoice(request, option, choicesOf(known));
}

// An option that is not in the PPD: the choices are those of the header's table.
std::optional<Remark> remarkOnTableChoice(const Request& request, const Option& option,
                                          const RowFacts& row) {
  if (!row.table) return std::nullopt;
  std::vector<std::string> choices;
  for (const pjl::ValueRow& pair : row.table->rows) {
    if (pair.key != nullptr) choices.emplace_back(pair.key);
  }
  return unlessChoice(request, option, std::move(choices));
}

// The maker's dialog sends its values in options of its own, such as QVGutterDistanceValue100.
bool isDialogOption(const std::string& name) {
  return rowOf(name, true) || (name.starts_with("QV") && name.find("Value") != std::string::npos);
}

struct PageSize {
  float width;
  float length;
};

// The page size of a job with only this option, in the PPD whose choices are marked so far: a
// "media" that names no paper changes nothing.
std::optional<PageSize> markedPage(ppd_file_t* ppd, const char* name, const std::string& value) {
  cups_option_t option{const_cast<char*>(name), const_cast<char*>(value.c_str())};
  job::r_cupsMarkOptions(ppd, 1, &option);
  const ppd_size_t* size = job::r_ppdPageSize(ppd, nullptr);
  if (size == nullptr) return std::nullopt;
  return PageSize{size->width, size->length};
}

// Whether the filter turns standard options into own ones in this job.
bool hasStandardOptions(const Request& request) {
  return request.ppd != nullptr && !request.isDialogJob() &&
         job::r_ppdFindAttr(request.ppd, stdoptions::kAttribute, nullptr) != nullptr;
}

// Finishings have numbers; 3 is none.
std::vector<std::string> finishingsOf(ppd_file_t* ppd) {
  std::vector<std::string> numbers = {"3"};
  for (const ppd_attr_t* attribute = ppdFindAttr(ppd, "cupsIPPFinishings", nullptr);
       attribute != nullptr; attribute = ppdFindNextAttr(ppd, "cupsIPPFinishings", nullptr)) {
    numbers.emplace_back(attribute->spec);
  }
  return numbers;
}

// The IPP name that CUPS gives a choice of the PPD: "face-down" for FaceDown.
std::string ippName(std::string_view choice) {
  std::string name;
  for (const char c : choice) {
    const bool isUpper = std::isupper(static_cast<unsigned char>(c)) != 0;
    if (isUpper && !name.empty()) name += '-';
    name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return name;
}

std::vector<std::string> outputBinsOf(const Request& request) {
  std::vector<std::string> bins;
  const ppd_option_t* option = ppdOption(request, "OutputBin");
  if (option == nullptr) return bins;
  for (const std::string& choice : choicesOf(*option)) bins.push_back(ippName(choice));
  return bins;
}

// The keywords of an IPP attribute that CUPS or the filter turns into options of the PPD; none for
// any other option.
std::vector<std::string> keywordsOfIpp(const Request& request, std::string_view name) {
  if (name == "sides") return {"one-sided", "two-sided-long-edge", "two-sided-short-edge"};
  if (name == "finishings") return finishingsOf(request.ppd);
  if (name == "output-bin") return outputBinsOf(request);
  std::vector<std::string> keywords;
  for (const stdoptions::StandardOption& standard : stdoptions::kStandardOptions) {
    if (standard.source != stdoptions::Source::kJob || name != standard.keyword) continue;
    for (const auto& row : standard.choices) {
      if (std::ranges::find(keywords, row.choice) == keywords.end())
        keywords.emplace_back(row.choice);
    }
  }
  return keywords;
}

bool isAmong(std::string_view word, const std::vector<std::string>& words) {
  return std::ranges::any_of(words, [&](const std::string& one) { return sameWord(word, one); });
}

std::vector<std::string> wordsOf(std::string_view list) {
  std::vector<std::string> words;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find(','), list.size());
    words.emplace_back(list.substr(0, end));
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return words;
}

// Whether libcups finds a paper in a word of "media": the page size is then the same, whatever it
// was before.
bool namesAPaper(ppd_file_t* ppd, const std::string& word) {
  if (ppd->num_sizes < 2) return true;
  const auto after = [&](const ppd_size_t& before) {
    markedPage(ppd, "PageSize", before.name);
    return markedPage(ppd, "media", word);
  };
  const auto one = after(ppd->sizes[0]);
  const auto other = after(ppd->sizes[1]);
  return one && other && one->width == other->width && one->length == other->length;
}

// A word of "media" that is no paper, tray or paper type; empty when each is one.
std::string strangeMedia(const Request& request, const std::string& value) {
  const std::vector<std::string> known = keywordsOfIpp(request, "media");
  std::string strange;
  for (const std::string& word : wordsOf(value)) {
    if (strange.empty() && !isAmong(word, known) && !namesAPaper(request.ppd, word)) strange = word;
  }
  outcomeOf(request);  // marks the request's choices again
  return strange;
}

std::optional<Remark> remarkOnMedia(const Request& request, const Option& option) {
  const std::string strange = strangeMedia(request, option.value);
  if (strange.empty()) return std::nullopt;
  return Remark{
      option,
      "has the word \"" + strange + "\", which is no paper, tray or paper type of this printer",
      {},
      ""};
}

// Only finishings can be several.
std::optional<Remark> unlessKeywords(const Option& option,
                                     const std::vector<std::string>& keywords) {
  if (keywords.empty()) return std::nullopt;
  const std::vector<std::string> words = wordsOf(option.value);
  if (words.empty()) return Remark{option, "has no value", keywords, ""};
  for (const std::string& word : words) {
    if (isAmong(word, keywords)) continue;
    std::string nearest = isNumber(word) ? "" : nearestOf(word, keywords);
    return Remark{option, "is not a choice of this option", keywords, std::move(nearest)};
  }
  if (words.size() > 1 && option.name != "finishings") {
    return Remark{option, "has several values, and the option takes one", keywords, ""};
  }
  return std::nullopt;
}

// What CUPS and the filter do not understand, they take for nothing asked.
std::optional<Remark> remarkOnStandard(const Request& request, const Option& option) {
  if (!hasStandardOptions(request)) return std::nullopt;
  if (option.name == "media") return remarkOnMedia(request, option);
  if (option.name == "job-password") {
    const Option* encryption = findOption(request.options, "job-password-encryption");
    if (encryption != nullptr && encryption->value != "none") {
      return Remark{option, "is encrypted, and the printer needs the digits", {}, ""};
    }
    if (job::isValidateSecretNumString(option.value.c_str(), 1, job::kSecretNum.max)) {
      return std::nullopt;
    }
    return Remark{option,
                  "is no PIN: a PIN has 1 to " + std::to_string(job::kSecretNum.max) + " digits",
                  {},
                  ""};
  }
  return unlessKeywords(option, keywordsOfIpp(request, option.name));
}

// What CUPS' filters do before this printer's, with any PPD.
std::optional<Remark> remarkOnFilters(const Option& option) {
  if (option.name == "number-up") return unlessKeywords(option, {"1", "2", "4", "6", "9", "16"});
  if (option.name == "print-scaling") {
    return unlessKeywords(option, {"auto", "auto-fit", "fill", "fit", "none"});
  }
  if (option.name == "raw" && !sameWord(option.value, "false")) {
    return Remark{option, "prints without the filter: the printer gets no header", {}, ""};
  }
  return std::nullopt;
}

std::optional<Remark> remarkOnName(const Request& request, const Option& option) {
  if (const auto row = rowOf(option.name, request.isDialogJob())) {
    return remarkOnTableChoice(request, option, *row);
  }
  // The print server's defaults are of any name.
  if (isOfCups(option.name) || option.giver == Giver::kQueue) return std::nullopt;
  if (isDialogOption(option.name)) {
    if (request.isDialogJob()) return std::nullopt;
    return Remark{option, kDialogOnly, {}, ""};
  }
  return Remark{
      option, "is not an option of this printer", {}, nearestOf(option.name, knownNames(request))};
}

// Whether an option of the PPD does nothing in this job. Its default asks for nothing anyway.
bool isIdle(const Request& request, const Option& option, const ppd_option_t& known) {
  if (request.isDialogJob() || option.value == known.defchoice) return false;
  if (rowOf(option.name, false)) return false;
  return std::ranges::any_of(psrewrite::features(), [&](const psrewrite::Feature& feature) {
    return feature.dialogOnly && option.name == feature.keyword;
  });
}

std::optional<Remark> remarkOnSpelled(const Request& request, const Option& option) {
  const ppd_option_t* known = ppdOption(request, option.name);
  if (known == nullptr) {
    auto remark = remarkOnFilters(option);
    if (!remark) remark = remarkOnStandard(request, option);
    return remark ? std::move(remark) : remarkOnName(request, option);
  }
  if (isIdle(request, option, *known)) return Remark{option, kDialogOnly, {}, ""};
  return remarkOnChoice(request, option, *known);
}

// lp(1) and cupsd read these, and know them only in their own letters.
bool needsItsLetters(std::string_view standard) {
  return standard.starts_with("job-") || standard == "copies" || standard == "media-col";
}

std::optional<Remark> remarkOn(const Request& request, const Option& option) {
  Option spelled = option;
  const ppd_option_t* known = ppdOption(request, option.name);
  const std::string_view* standard = standardName(option.name);
  if (known != nullptr) {
    spelled.name = known->keyword;
  } else if (standard != nullptr) {
    spelled.name = *standard;
  }
  if (spelled.name == option.name) return remarkOnSpelled(request, option);
  const bool isInPpd = known != nullptr;
  if ((!isInPpd && needsItsLetters(spelled.name)) || !hasSameEffect(request, option, spelled)) {
    return Remark{
        option,
        std::string("is spelled with other capital letters in ") + (isInPpd ? "the PPD" : "CUPS"),
        {},
        spelled.name};
  }
  Request other = request;
  std::ranges::replace(other.options, option, spelled);
  auto remark = remarkOnSpelled(other, spelled);
  if (remark) remark->option = option;
  return remark;
}

// CUPS' own option and the PPD's choose different papers. libcups reads both: "media" has many
// forms.
std::optional<Remark> remarkOnPaper(const Request& request) {
  const Option* media = findOption(request.options, "media");
  const Option* page = findOption(request.options, "PageSize");
  if (page == nullptr) page = findOption(request.options, "PageRegion");
  if (request.ppd == nullptr || media == nullptr || page == nullptr) return std::nullopt;
  if (media->giver != Giver::kJob && page->giver == Giver::kJob) return std::nullopt;
  job::r_ppdMarkDefaults(request.ppd);
  const auto one = markedPage(request.ppd, page->name.c_str(), page->value);
  const auto other = markedPage(request.ppd, "media", media->value);
  outcomeOf(request);  // marks the request's choices again
  if (!one || !other) return std::nullopt;
  const auto agree = [](float a, float b) {
    return std::abs(static_cast<double>(a) - static_cast<double>(b)) <= kPaperTolerance;
  };
  if (agree(one->width, other->width) && agree(one->length, other->length)) return std::nullopt;
  return Remark{*media, "is not the same paper as " + page->name + "=" + page->value, {}, ""};
}

// Dialogs refuse custom papers that the printer cannot have, and lp(1) does not.
std::optional<Remark> remarkOnCustomPaper(const Request& request, const Option& option) {
  const bool isPaper = option.name == "media" || option.name == "PageSize";
  if (!isPaper || request.ppd == nullptr || request.ppd->variable_sizes == 0) return std::nullopt;
  job::r_ppdMarkDefaults(request.ppd);
  const auto page = markedPage(request.ppd, option.name.c_str(), option.value);
  const ppd_choice_t* choice = job::r_ppdFindMarkedChoice(request.ppd, "PageSize");
  const bool isCustom = choice != nullptr && std::string_view(choice->choice) == "Custom";
  outcomeOf(request);  // marks the request's choices again
  if (!page || !isCustom) return std::nullopt;
  const float* least = request.ppd->custom_min;
  const float* most = request.ppd->custom_max;
  const auto isWithin = [&](float length, int i) {
    return length >= least[i] && length <= most[i];
  };
  if (isWithin(page->width, 0) && isWithin(page->length, 1)) return std::nullopt;
  const auto points = [](float length) { return std::to_string(std::lround(length)); };
  return Remark{option,
                "is no paper that the printer can have: its width is " + points(least[0]) + " to " +
                    points(most[0]) + " points, its height " + points(least[1]) + " to " +
                    points(most[1]),
                {},
                ""};
}

struct Choice {
  std::string keyword;
  std::string choice;

  bool operator==(const Choice&) const = default;
  std::string text() const { return keyword + "=" + choice; }
};

std::span<ppd_choice_t> spanOf(const ppd_option_t& option) {
  return {option.choices, static_cast<std::size_t>(option.num_choices)};
}

// libcups looks for the page size in the list of sizes.
void unmarkAll(ppd_file_t* ppd) {
  cupsArrayClear(ppd->marked);
  for (ppd_size_t& size : std::span(ppd->sizes, static_cast<std::size_t>(ppd->num_sizes))) {
    size.marked = 0;
  }
  for (ppd_option_t* option = ppdFirstOption(ppd); option != nullptr; option = ppdNextOption(ppd)) {
    for (ppd_choice_t& choice : spanOf(*option)) choice.marked = 0;
  }
}

// The marked choices that a constraint forbids, each together with others of them.
std::vector<Choice> conflictedChoices(ppd_file_t* ppd) {
  std::vector<Choice> conflicted;
  if (ppdConflicts(ppd) == 0) return conflicted;
  for (ppd_option_t* option = ppdFirstOption(ppd); option != nullptr; option = ppdNextOption(ppd)) {
    if (option->conflicted == 0) continue;
    for (const ppd_choice_t& choice : spanOf(*option)) {
      if (choice.marked != 0) conflicted.push_back({option->keyword, choice.choice});
    }
  }
  return conflicted;
}

bool exclude(ppd_file_t* ppd, const Choice& one, const Choice& other) {
  unmarkAll(ppd);
  for (const Choice* choice : {&one, &other}) {
    job::r_ppdMarkOption(ppd, choice->keyword.c_str(), choice->choice.c_str());
  }
  return ppdConflicts(ppd) != 0;
}

// Choices that a constraint forbids together: pairs, and what is left of constraints on more than
// two options.
std::vector<std::vector<Choice>> conflictsAmong(ppd_file_t* ppd, const std::vector<Choice>& all) {
  std::vector<std::vector<Choice>> conflicts;
  std::vector<Choice> left = all;
  for (std::size_t i = 0; i < all.size(); ++i) {
    for (std::size_t j = i + 1; j < all.size(); ++j) {
      if (!exclude(ppd, all[i], all[j])) continue;
      conflicts.push_back({all[i], all[j]});
      std::erase(left, all[i]);
      std::erase(left, all[j]);
    }
  }
  if (left.size() > 1) conflicts.push_back(std::move(left));
  return conflicts;
}

// Which options of the job choose what the PPD's options are marked with.
class Choosers {
 public:
  explicit Choosers(const Request& request) : request_(request) {}

  // The option without which the choice would be the PPD's default; its own option if that says
  // so, too. Null when no option is for it.
  const Option* of(const Choice& choice) const;

 private:
  bool isMarkedBy(std::vector<Option> options, const Choice& choice) const;

  const Request& request_;
};

bool Choosers::isMarkedBy(std::vector<Option> options, const Choice& choice) const {
  Request alone = request_;
  if (const Option* dialog = findOption(request_.options, "PrintPDE")) options.push_back(*dialog);
  alone.options = std::move(options);
  outcomeOf(alone);
  const ppd_choice_t* marked = job::r_ppdFindMarkedChoice(request_.ppd, choice.keyword.c_str());
  return marked != nullptr && choice.choice == marked->choice;
}

const Option* Choosers::of(const Choice& choice) const {
  const bool isDefault = isMarkedBy({}, choice);
  const Option* chooser = nullptr;
  for (const Option& option : request_.options) {
    const bool isOwn = strcasecmp(option.name.c_str(), choice.keyword.c_str()) == 0;
    if ((isDefault && !isOwn) || (chooser != nullptr && !isOwn)) continue;
    if (isMarkedBy({option}, choice)) chooser = &option;
  }
  return chooser;
}

constexpr char kByConstraint[] = " (a constraint of the PPD)";

std::string joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) {
    if (!all.empty()) all += &text == &texts.back() ? " and " : ", ";
    all += text;
  }
  return all;
}

// Names the options that the person typed; none when all the choices are the PPD's defaults.
std::optional<Remark> remarkOnConflict(const Request& request, const std::vector<Choice>& choices) {
  const Choosers choosers(request);
  std::vector<const Option*> typed;
  std::vector<std::string> defaults;
  std::vector<std::string> names;
  for (const Choice& choice : choices) {
    const Option* option = choosers.of(choice);
    names.push_back(choice.text());
    if (option == nullptr) {
      defaults.push_back(choice.text() + ", the PPD's default");
    } else if (std::ranges::find(typed, option) == typed.end()) {
      typed.push_back(option);
    }
  }
  if (typed.empty()) return std::nullopt;
  std::ranges::sort(typed);  // in the order of the options
  if (typed.size() == 1 && defaults.empty()) {
    return Remark{*typed.front(),
                  "asks for " + joined(names) + ", which cannot be used together" + kByConstraint,
                  {},
                  ""};
  }
  std::vector<std::string> others;
  for (const Option* option : std::span(typed).subspan(1)) {
    others.push_back(option->name + "=" + option->value);
  }
  others.insert(others.end(), defaults.begin(), defaults.end());
  return Remark{
      *typed.front(), "cannot be used together with " + joined(others) + kByConstraint, {}, ""};
}

// The PPD's constraints: choices that cannot be used together. Two options can choose the same
// thing under several names; each pair of options is named once.
void addConflicts(const Request& request, std::vector<Remark>& remarks) {
  if (request.ppd == nullptr) return;
  const std::vector<Choice> conflicted = conflictedChoices(request.ppd);
  if (conflicted.empty()) return;
  for (const std::vector<Choice>& choices : conflictsAmong(request.ppd, conflicted)) {
    auto remark = remarkOnConflict(request, choices);
    const auto isSame = [&](const Remark& one) {
      return one.option == remark->option && one.problem == remark->problem;
    };
    if (remark && std::ranges::none_of(remarks, isSame)) remarks.push_back(std::move(*remark));
  }
  outcomeOf(request);  // marks the request's choices again
}

}  // namespace

std::vector<Remark> remarksOn(const Request& request) {
  std::vector<Remark> remarks;
  for (const Option& option : request.options) {
    auto remark = remarkOn(request, option);
    if (!remark) remark = remarkOnCustomPaper(request, option);
    if (remark) remarks.push_back(std::move(*remark));
  }
  if (auto remark = remarkOnPaper(request)) remarks.push_back(std::move(*remark));
  addConflicts(request, remarks);
  for (Remark& remark : remarks) {
    if (auto row = rowOf(remark.option.name, request.isDialogJob())) {
      remark.variables = std::move(row->variables);
    }
  }
  return remarks;
}

std::size_t editDistance(std::string_view one, std::string_view other) {
  if (std::max(one.size(), other.size()) > kLongestCompared) {
    return std::max(one.size(), other.size());
  }
  const auto lower = [](char c) { return std::tolower(static_cast<unsigned char>(c)); };
  using Row = std::array<std::size_t, kLongestCompared + 1>;
  Row row{};
  Row last{};
  Row beforeLast{};
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < one.size(); ++i) {
    beforeLast = last;
    last = row;
    row[0] = i + 1;
    for (std::size_t j = 0; j < other.size(); ++j) {
      const auto same = [&](std::size_t a, std::size_t b) {
        return lower(one[a]) == lower(other[b]);
      };
      row[j + 1] = std::min({last[j] + (same(i, j) ? 0 : 1), row[j] + 1, last[j + 1] + 1});
      const bool swapped = i > 0 && j > 0 && same(i, j - 1) && same(i - 1, j);
      if (swapped) row[j + 1] = std::min(row[j + 1], beforeLast[j - 1] + 1);
    }
  }
  return row[other.size()];
}

}  // namespace kelm::explain
