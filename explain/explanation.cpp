// What would be sent for a job: each line of its header, what it means and where its value comes
// from.
//
// An option is the cause of a line if the filter's own stages write another line without the
// option.
// SPDX-License-Identifier: Apache-2.0
#include "explain/explanation.hpp"

#include <algorithm>
#include <map>
#include <span>
#include <utility>

#include "job/ppd_calls.hpp"

namespace kelm::explain {
namespace {

// A line's place: its row, and its number among the row's lines.
using Place = std::pair<const pjl::HeaderStep*, int>;
using Values = std::map<Place, std::pair<std::string, std::string>>;  // variable and value

template <class Visitor>
void forEachLine(const std::vector<pjl::RecordedLine>& header, Visitor visitor) {
  Place place{nullptr, -1};
  for (const pjl::RecordedLine& line : header) {
    place = line.step == place.first ? Place{line.step, place.second + 1} : Place{line.step, 0};
    visitor(place, line);
  }
}

Values valuesOf(const std::vector<pjl::RecordedLine>& header) {
  Values values;
  forEachLine(header, [&](const Place& place, const pjl::RecordedLine& line) {
    values[place] = {line.variable, line.value};
  });
  return values;
}

bool holds(const Values& values, const Place& place, const pjl::RecordedLine& line) {
  const auto found = values.find(place);
  return found != values.end() &&
         found->second == std::pair<std::string, std::string>(line.variable, line.value);
}

// The same job with only the options that `keep` accepts. The option that marks a job of the
// maker's dialog is kept: it decides which rows are used.
template <class Keep>
Request reduced(const Request& request, int copies, Keep keep) {
  Request other = request;
  other.copies = copies;
  std::erase_if(other.options,
                [&](const Option& option) { return option.name != "PrintPDE" && !keep(option); });
  return other;
}

// One option of the request, and the headers of the job without it and with it alone.
struct Trial {
  Option option;
  Values without;
  Values alone;
};

std::vector<Trial> trialsOf(const Request& request) {
  std::vector<Trial> trials;
  for (const Option& tried : request.options) {
    if (tried.name == "PrintPDE") continue;
    const auto isTried = [&](const Option& option) { return option == tried; };
    const auto isOther = [&](const Option& option) { return option != tried; };
    trials.push_back({tried, valuesOf(outcomeOf(reduced(request, request.copies, isOther)).header),
                      valuesOf(outcomeOf(reduced(request, 1, isTried)).header)});
  }
  if (request.copies > 1) {
    const auto every = [](const Option&) { return true; };
    const auto none = [](const Option&) { return false; };
    trials.push_back({{request.copiesName, std::to_string(request.copies), request.copiesGiver},
                      valuesOf(outcomeOf(reduced(request, 1, every)).header),
                      valuesOf(outcomeOf(reduced(request, request.copies, none)).header)});
  }
  return trials;
}

// Whether the stages left the option's value unchanged, or only removed "Custom.".
bool isSettled(const Option& asked, const std::vector<Option>& settled) {
  constexpr std::string_view kCustom = "Custom.";
  const Option* option = findOption(settled, asked.name);
  if (option == nullptr) return false;
  const bool isCustom = asked.value.starts_with(kCustom);
  return option->value == asked.value ||
         (isCustom && option->value == asked.value.substr(kCustom.size()));
}

// The options without which the line would be different. If several options ask for the same value,
// each of them that is enough alone. If the job asks for the default, the options that the row
// reads.
std::vector<Option> causesOf(const std::vector<Trial>& trials, const Place& place,
                             const pjl::RecordedLine& line, const RowFacts& row,
                             const std::vector<Option>& settled, bool changed) {
  std::vector<Option> needed;
  std::vector<Option> sufficient;
  std::vector<Option> own;
  for (const Trial& trial : trials) {
    if (!holds(trial.without, place, line)) needed.push_back(trial.option);
    if (changed && holds(trial.alone, place, line)) sufficient.push_back(trial.option);
    if (row.hasOption(trial.option.name) && isSettled(trial.option, settled)) {
      own.push_back(trial.option);
    }
  }
  if (!needed.empty()) return needed;
  return sufficient.empty() ? own : sufficient;
}

Origin originWithoutCause(const RowFacts& row, const std::vector<Option>& settled) {
  if (row.fallback == pjl::Fallback::kComputer) return Origin::kComputer;
  if (row.fallback == pjl::Fallback::kJobTitle) return Origin::kJobTitle;
  const auto isStated = [&](const std::string& name) {
    return findOption(settled, name) != nullptr;
  };
  // If a row chooses among variables, its other options do not give the value.
  const bool isChoiceOfVariables = row.variables.size() > 1 && !row.writesAllVariables;
  const bool stated = isChoiceOfVariables ? isStated(row.options.front())
                                          : std::ranges::any_of(row.options, isStated);
  return stated || row.fallback == pjl::Fallback::kPpdDefault ? Origin::kPpdDefault
                                                              : Origin::kTableDefault;
}

// The job and its variants, and what the stages make of them.
struct Job {
  const Request& request;
  Outcome base;  // without options
  Outcome outcome;
  std::vector<Trial> trials;
};

bool contains(const std::vector<Option>& options, const Option& option) {
  return std::ranges::find(options, option) != options.end();
}

// The row's options that the stages derived from other options.
std::vector<Option> becameOf(const RowFacts& row, const Job& job) {
  std::vector<Option> became;
  for (const std::string& name : row.options) {
    const Option* option = findOption(job.outcome.options, name);
    if (option == nullptr || contains(job.base.options, *option)) continue;
    const bool isAsked = std::ranges::any_of(job.request.options, [&](const Option& asked) {
      return asked.name == option->name && isSettled(asked, {*option});
    });
    // Users do not type the option that holds the number of copies.
    if (!isAsked && !name.starts_with("com.apple.")) became.push_back(*option);
  }
  return became;
}

// What the line says, without its source.
Line plainLine(ppd_file_t* ppd, const RowFacts& row, const pjl::RecordedLine& line,
               const std::vector<Option>& settled) {
  Line plain;
  plain.variable = line.variable;
  plain.value = line.value;
  plain.label = labelOf(ppd, row, line, settled);
  return plain;
}

// A line of the frame, or of a variable that the printer does not have.
Line strangeLine(const pjl::RecordedLine& line) {
  Line strange;
  strange.variable = line.variable;
  strange.value = line.value;
  strange.label = {line.variable, line.value};
  return strange;
}

constexpr std::size_t kMostLinesOfOption = 8;  // a stream may have a variable hundreds of times

// The lines of a header that belong to one option of the PPD.
std::vector<const pjl::RecordedLine*> linesOfOption(const StreamReport& report,
                                                    const std::string& option) {
  std::vector<const pjl::RecordedLine*> lines;
  for (const pjl::RecordedLine& line : report.header) {
    if (line.step == nullptr) continue;
    const RowFacts& row = factsOf(*line.step, report.isDialogJob);
    if (!row.options.empty() && row.options.front() == option) lines.push_back(&line);
  }
  return lines;
}

// Whether the filter writes these lines for this choice only.
bool isWrittenFor(Request request, const Option& choice,
                  const std::vector<const pjl::RecordedLine*>& lines) {
  request.options.push_back(choice);
  return std::ranges::all_of(lines, [&](const pjl::RecordedLine* line) {
    const std::vector<pjl::RecordedLine> written = outcomeOf(request, line->step).header;
    return written.size() == 1 && written.front().variable == line->variable &&
           written.front().value == line->value;
  });
}

// Several choices can have the same value (AUTOSELECT=OFF). Returns the choice that another line of
// the same option identifies (MEDIASOURCE=TRAY2). Nothing if no line does.
std::vector<Option> choiceOfLines(const StreamReport& report, const Request& none,
                                  const RowFacts& row) {
  if (none.ppd == nullptr || row.options.empty()) return {};
  const std::string& name = row.options.front();
  const ppd_option_t* option = job::r_ppdFindOption(none.ppd, name.c_str());
  const auto lines = linesOfOption(report, name);
  if (option == nullptr || lines.size() < 2 || lines.size() > kMostLinesOfOption) return {};
  std::vector<Option> found;
  for (const ppd_choice_t& choice :
       std::span(option->choices, static_cast<std::size_t>(option->num_choices))) {
    const Option candidate{name, choice.choice};
    if (isWrittenFor(none, candidate, lines)) found.push_back(candidate);
  }
  return found.size() == 1 ? found : std::vector<Option>();
}

Line explainedLine(const Job& job, const Place& place, const pjl::RecordedLine& line,
                   bool changed) {
  if (line.step == nullptr) return strangeLine(line);
  const std::vector<Option>& settled = job.outcome.options;
  const RowFacts& row = factsOf(*line.step, job.request.isDialogJob());
  Line explained = plainLine(job.request.ppd, row, line, settled);
  explained.changed = changed;
  explained.causes = causesOf(job.trials, place, line, row, settled, changed);
  if (!explained.causes.empty()) explained.became = becameOf(row, job);
  const bool lacks = lacksChoice(row, line.variable, line.value);
  explained.origin = explained.causes.empty() ? originWithoutCause(row, settled)
                     : lacks                  ? Origin::kNoSuchChoice
                                              : Origin::kJob;
  return explained;
}

}  // namespace

const char* wordFor(Origin origin) {
  switch (origin) {
    case Origin::kFixed:
      return "fixed";
    case Origin::kJob:
      return "job";
    case Origin::kNoSuchChoice:
      return "no-such-choice";
    case Origin::kPpdDefault:
      return "ppd-default";
    case Origin::kTableDefault:
      return "default";
    case Origin::kComputer:
      return "computer";
    case Origin::kJobTitle:
      return "title";
  }
  return "";
}

Explanation explained(const Request& request) {
  const QuietPlatform quiet;
  const auto none = [](const Option&) { return false; };
  Job job{request, outcomeOf(reduced(request, 1, none)), {}, trialsOf(request)};
  job.outcome = outcomeOf(request);  // called last, because its marks stay in the PPD
  const Values base = valuesOf(job.base.header);
  Explanation explanation;
  forEachLine(job.outcome.header, [&](const Place& place, const pjl::RecordedLine& line) {
    const bool changed = line.step != nullptr && !holds(base, place, line);
    explanation.lines.push_back(explainedLine(job, place, line, changed));
  });
  explanation.remarks = remarksOn(request);
  return explanation;
}

std::vector<Line> linesOf(const StreamReport& report, ppd_file_t* ppd) {
  const QuietPlatform quiet;
  Request none;
  none.ppd = ppd;
  if (report.isDialogJob) none.options.push_back({"PrintPDE", "1"});
  const Values base = valuesOf(outcomeOf(none).header);
  std::vector<Line> lines;
  forEachLine(report.header, [&](const Place& place, const pjl::RecordedLine& line) {
    if (line.step == nullptr) {
      lines.push_back(strangeLine(line));
      return;
    }
    const RowFacts& row = factsOf(*line.step, report.isDialogJob);
    lines.push_back(plainLine(ppd, row, line, {}));
    if (lines.back().label.choice == line.value) {
      lines.back() = plainLine(ppd, row, line, choiceOfLines(report, none, row));
    }
    const bool isEveryJobs =
        row.fallback == pjl::Fallback::kComputer || row.fallback == pjl::Fallback::kJobTitle;
    lines.back().changed = !isEveryJobs && !holds(base, place, line);
  });
  return lines;
}

}  // namespace kelm::explain
