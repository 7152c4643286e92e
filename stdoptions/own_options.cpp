// Settles a job's values of the printer's own options (QV...): each from the job's own choice, the
// standard option and the queue's default.
// SPDX-License-Identifier: Apache-2.0
#include "stdoptions/own_options.hpp"

#include <strings.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

#include "job/ppd_calls.hpp"
#include "job/text_fields.hpp"
#include "stdoptions/standard_choices.hpp"

namespace kelm::stdoptions {
namespace {

using job::PrintJobData;

constexpr char kOrientation[] = "QVOrientation";
constexpr std::size_t kMostDigits = 9;  // of a number that is copied

// The header copies this option's value as it is, because a printer may have more boxes than the
// PPD has choices.
constexpr char kOpenOption[] = "QVOutputBox";

// The sections of these texts contain XXX. The writers of the sections replace it by the job's
// text.
constexpr const job::TextField* kTextFields[] = {
    &job::kOwnerName,        &job::kJobName,       &job::kSecretNum,   &job::kJobComment,
    &job::kBarcodeSelection, &job::kOutputProfile, &job::kFormSelect1, &job::kFormSelect2,
};

const job::TextField* textField(const ppd_option_t& option) {
  const auto field = std::ranges::find_if(kTextFields, [&](const job::TextField* candidate) {
    return std::strcmp(candidate->key, option.keyword) == 0;
  });
  return field == std::end(kTextFields) ? nullptr : *field;
}

const char* jobValue(const PrintJobData& job, const char* name) {
  return cupsGetOption(name, job.numOptions, job.options);
}

// The choice that libcups marked, which pstops writes; null when none is marked. libcups' own
// function would search for the option first.
const char* markedChoice(const ppd_option_t& option) {
  const std::span choices(option.choices, static_cast<std::size_t>(option.num_choices));
  const auto marked =
      std::ranges::find_if(choices, [](const ppd_choice_t& choice) { return choice.marked != 0; });
  return marked == choices.end() ? nullptr : marked->choice;
}

const char* markedChoice(const PrintJobData& job, const char* keyword) {
  const ppd_option_t* option = job::r_ppdFindOption(job.ppd, keyword);
  return option == nullptr ? nullptr : markedChoice(*option);
}

const StandardChoice* rowOf(std::span<const StandardChoice> choices, std::string_view choice) {
  const auto row = std::ranges::find_if(choices, [&](const StandardChoice& candidate) {
    return std::string_view(candidate.choice).size() == choice.size() &&
           strncasecmp(candidate.choice, choice.data(), choice.size()) == 0;
  });
  return row == choices.end() ? nullptr : &*row;
}

// Where a marked choice comes from: the job, or only the queue's default.
enum class Asker { kJob, kQueue };

// The choice of the own option that the marked choice means, if the marked choice comes from
// `asker`. The neutral choice counts only if the job overrides another default of the queue with
// it.
const char* askedByMark(const PrintJobData& job, const StandardOption& standard, Asker asker) {
  const ppd_option_t* option = job::r_ppdFindOption(job.ppd, standard.keyword);
  const char* choice = option == nullptr ? nullptr : markedChoice(*option);
  const StandardChoice* row = choice == nullptr ? nullptr : rowOf(standard.choices, choice);
  if (row == nullptr) return nullptr;
  const bool isDefault = strcasecmp(option->defchoice, choice) == 0;
  const bool isNeutral = row == &standard.choices.front();
  const bool asks = asker == Asker::kJob ? !isDefault : isDefault && !isNeutral;
  return asks ? row->value : nullptr;
}

// The choice of the own option for the first word of a job option that is a choice of the table and
// not neutral.
const char* askedByJob(const PrintJobData& job, const StandardOption& standard) {
  const char* value = jobValue(job, standard.keyword);
  for (std::string_view words = value != nullptr ? value : ""; !words.empty();) {
    const std::size_t end = std::min(words.find(','), words.size());
    const StandardChoice* row = rowOf(standard.choices, words.substr(0, end));
    words.remove_prefix(std::min(end + 1, words.size()));
    if (row != nullptr && row != &standard.choices.front()) return row->value;
  }
  return nullptr;
}

const char* askedFor(const PrintJobData& job, const StandardOption& standard, Asker asker) {
  if (standard.source == Source::kMarked) return askedByMark(job, standard, asker);
  return asker == Asker::kJob ? askedByJob(job, standard) : nullptr;
}

// What the job asks for, by any of the names, wins over the queue's default.
const char* standardChoice(const PrintJobData& job, const char* own) {
  const char* ofQueue = nullptr;
  for (const StandardOption& standard : kStandardOptions) {
    if (std::strcmp(standard.own, own) != 0) continue;
    if (const char* ofJob = askedFor(job, standard, Asker::kJob)) return ofJob;
    if (ofQueue == nullptr) ofQueue = askedFor(job, standard, Asker::kQueue);
  }
  return ofQueue;
}

// A client's "job-password" if the printer accepts it, else null. The PIN cannot be found out from
// an encrypted one, even if that has only digits.
const char* jobPassword(const PrintJobData& job) {
  const char* password = jobValue(job, "job-password");
  const char* encryption = jobValue(job, "job-password-encryption");
  const bool inClear = encryption == nullptr || std::strcmp(encryption, "none") == 0;
  const bool usable = password != nullptr && inClear && *password != '\0' &&
                      job::isValidateSecretNumString(password, 1, job::kSecretNum.max);
  return usable ? password : nullptr;
}

bool isNumber(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  return !text.empty() && text.size() <= kMostDigits &&
         text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool isName(std::string_view text) {
  return !text.empty() && text.size() < PPD_MAX_NAME &&
         std::ranges::all_of(
             text, [](unsigned char c) { return std::isalnum(c) != 0 || c == '_' || c == '-'; });
}

// The parameter of an option's custom value (the PPD's options have at most one); null when the
// option takes no custom value.
const ppd_cparam_t* customParameter(const PrintJobData& job, const ppd_option_t& option) {
  ppd_coption_t* custom = job::r_ppdFindCustomOption(job.ppd, option.keyword);
  return custom == nullptr ? nullptr : job::r_ppdFirstCustomParam(custom);
}

// The custom value that libcups marked, as the header says it: a number, or "Custom." and the text.
std::string markedCustomValue(const ppd_cparam_t& parameter) {
  if (parameter.type == PPD_CUSTOM_INT) return std::to_string(parameter.current.custom_int);
  const char* text = parameter.current.custom_string;
  return std::string("Custom.") + (text != nullptr ? text : "");
}

// One own option of the PPD, being settled.
class OwnOption {
 public:
  OwnOption(PrintJobData& job, const ppd_option_t& option)
      : job_(job),
        option_(option),
        field_(textField(option)),
        typed_(jobValue(job, option.keyword)),
        written_(markedChoice(option)) {}

  void settle();
  // Makes the section say `value`.
  void override(const std::string& value);

 private:
  bool isCustom() const { return written_ != nullptr && std::strcmp(written_, "Custom") == 0; }

  // Whether the job asks for something with the option itself. Dialogs send every option with its
  // default, so a default is not a request.
  bool ownAsks() const {
    return typed_ != nullptr && strcasecmp(typed_, option_.defchoice) != 0 && means(typed_);
  }

  // Whether the value is one that the option can have.
  bool means(const char* value) const {
    if (isCustom() || field_ != nullptr) return true;
    return job::r_ppdFindChoice(const_cast<ppd_option_t*>(&option_), value) != nullptr ||
           isCopied(value);
  }

  // Whether the header copies a value that is no choice: a number, or the name of a folder.
  bool isCopied(const char* value) const {
    if (std::strcmp(option_.keyword, kOpenOption) == 0) return isName(value);
    const ppd_cparam_t* parameter = customParameter(job_, option_);
    return parameter != nullptr && parameter->type == PPD_CUSTOM_INT && isNumber(value);
  }

  std::string ownValue() const;
  void settleText();

  PrintJobData& job_;
  const ppd_option_t& option_;
  const job::TextField* field_;
  const char* typed_;    // the job's value, or null
  const char* written_;  // the choice that pstops writes
};

// The value of the own option's choice, spelled as in the PPD.
std::string OwnOption::ownValue() const {
  const ppd_cparam_t* parameter = isCustom() ? customParameter(job_, option_) : nullptr;
  if (parameter != nullptr) return markedCustomValue(*parameter);
  if (typed_ != nullptr && (field_ != nullptr || ownAsks())) {
    const ppd_choice_t* choice = job::r_ppdFindChoice(const_cast<ppd_option_t*>(&option_), typed_);
    if (choice == nullptr) return typed_;
  }
  return written_ != nullptr ? written_ : "";
}

void OwnOption::override(const std::string& value) {
  const ppd_choice_t* choice =
      job::r_ppdFindChoice(const_cast<ppd_option_t*>(&option_), value.c_str());
  const bool known = choice != nullptr && choice->code != nullptr;
  job_.overrides.push_back(
      {option_.keyword, value,
       known ? choice->code : "(" + value + ") userdict exch /" + option_.keyword + " exch put"});
}

void OwnOption::settle() {
  if (field_ != nullptr) return settleText();
  const char* standard = ownAsks() ? nullptr : standardChoice(job_, option_.keyword);
  const std::string value = standard != nullptr ? standard : ownValue();
  if (value.empty()) return;
  job::setOption(job_, option_.keyword, value);
  if (!isCustom() && (written_ == nullptr || value != written_)) override(value);
}

// CUPS writes a custom text in front of the value line, even if the text is the name or the label
// of a choice: that line must be removed.
void OwnOption::settleText() {
  std::string value = ownValue();
  const char* password = field_ == &job::kSecretNum && !ownAsks() ? jobPassword(job_) : nullptr;
  if (password != nullptr) value = isCustom() ? std::string("Custom.") + password : password;
  if (value.empty()) return;
  job::setOption(job_, option_.keyword, value);
  const char* named = isCustom() ? field_->namedChoice(job_) : nullptr;
  if (named == nullptr) return;
  job::setOption(job_, option_.keyword, named);
  job_.overrides.push_back({option_.keyword, named, ""});
}

// A custom paper that is wider than high is landscape unless the job asks for the other
// orientation; without a custom paper, a job that does not name an orientation stays without one.
void settleOrientation(PrintJobData& job, const ppd_option_t& option) {
  const char* typed = jobValue(job, option.keyword);
  const char* written = markedChoice(option);
  const bool isDefault = written == nullptr || strcasecmp(written, option.choices[0].choice) == 0;
  if (!isDefault) return job::setOption(job, option.keyword, written);
  if (typed == nullptr) return;
  const ppd_size_t* page = job::r_ppdPageSize(job.ppd, nullptr);
  const bool wide =
      page != nullptr && !std::strcmp(page->name, "Custom") && page->width > page->length;
  job::setOption(job, option.keyword, wide ? "Landscape" : written);
}

void settleOption(PrintJobData& job, const ppd_option_t& option) {
  if (std::strncmp(option.keyword, "QV", 2) != 0) return;
  if (!std::strcmp(option.keyword, kOrientation)) return settleOrientation(job, option);
  OwnOption(job, option).settle();
}

// A booklet's sheets flip on the short edge: the header says so whatever was chosen.
void settleBooklet(PrintJobData& job) {
  const char* binding = jobValue(job, "QVBookletBinding");
  const char* written = markedChoice(job, "QVDuplex");
  if (binding == nullptr || !std::strcmp(binding, "OFF") || written == nullptr) return;
  std::erase_if(job.overrides,
                [](const job::SectionOverride& section) { return section.keyword == "QVDuplex"; });
  job::setOption(job, "QVDuplex", "ShortEdge");
  if (std::strcmp(written, "ShortEdge") != 0) {
    OwnOption(job, *job::r_ppdFindOption(job.ppd, "QVDuplex")).override("ShortEdge");
  }
}

}  // namespace

void settleOwnOptions(PrintJobData& job) {
  for (const ppd_group_t& group : std::span(job.ppd->groups, std::size_t(job.ppd->num_groups))) {
    for (const ppd_option_t& option : std::span(group.options, std::size_t(group.num_options))) {
      settleOption(job, option);
    }
  }
  settleBooklet(job);
}

}  // namespace kelm::stdoptions
