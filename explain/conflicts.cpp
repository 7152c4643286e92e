// Choices that the PPD's constraints forbid together.
// SPDX-License-Identifier: Apache-2.0
#include "explain/conflicts.hpp"

#include <cups/ppd.h>
#include <strings.h>

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "job/ppd_calls.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::explain {
namespace {

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

// Choices that a constraint forbids together: first pairs, then together all choices that are in no
// pair, for constraints on more than two options.
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

// Finds the options of the job that led to the marked choices of the PPD.
class Choosers {
 public:
  explicit Choosers(const Request& request) : request_(request) {}

  // The job's option that gives the choice; preferably the one with the choice's own keyword. Null
  // if no option gives it.
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

// Names the options that the user typed. Nothing if all the choices are the PPD's defaults.
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

}  // namespace

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

}  // namespace kelm::explain
