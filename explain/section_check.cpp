// Finds feature sections of a stream that disagree with its header.
//
// The header should say what the header's own writers write for a job with the sections' values.
// SPDX-License-Identifier: Apache-2.0
#include "explain/section_check.hpp"

#include <strings.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "explain/request.hpp"
#include "explain/row_facts.hpp"
#include "explain/words.hpp"

namespace kelm::explain {
namespace {

constexpr char kPin[] = "PASSWORD";
constexpr double kPointsPerInch = 72.0;
constexpr double kHundredthsPerInch = 2540.0;
// The header has whole millimetres, and CUPS gives the sizes of custom pages in whole points.
constexpr double kSizeTolerance = 100.0;

bool equalButForCase(const std::string& one, const std::string& other) {
  return strcasecmp(one.c_str(), other.c_str()) == 0;
}

// The name of the job option whose value the section has.
std::string optionName(const Section& section) {
  return section.keyword == "PageSize" ? "media" : section.keyword;
}

std::string optionValue(const Section& section) {
  return section.keyword == "PageSize" ? section.choice : section.value;
}

// The page's size that a line is about, in 1/100 mm; nothing for another line, and where the
// section has no size.
std::optional<double> pageSizeFor(const Section& section, std::string_view variable) {
  if (section.width <= 0 || section.height <= 0) return std::nullopt;
  if (variable.ends_with("PAPERSIZEWIDTH") || variable == "QVPAGESIZEWIDTH") {
    return section.width / kPointsPerInch * kHundredthsPerInch;
  }
  if (variable.ends_with("PAPERSIZEHEIGHT") || variable == "QVPAGESIZEHEIGHT") {
    return section.height / kPointsPerInch * kHundredthsPerInch;
  }
  return std::nullopt;
}

// A custom text has a switch as well: the section of the text says nothing about the switch.
bool hasText(const std::string& option) {
  bool text = false;
  pjl::forEachStep(false, [&](const pjl::HeaderStep& step) {
    const RowFacts& row = factsOf(step, false);
    text = text || (row.hasOption(option) && option != "media" &&
                    (row.isHexText || row.variables.front() == kPin));
  });
  return text;
}

bool isText(const RowFacts& row, const pjl::RecordedLine& line) {
  return row.isHexText || line.variable == kPin;
}

class SectionCheck {
 public:
  SectionCheck(const StreamReport& report, const Note& note) : report_(report), note_(note) {}

  void run();

 private:
  void check(const Section& section, const pjl::RecordedLine& line);
  // Whether the option is the first of the row's options that have a section. The others are
  // compared together with it.
  bool isJudged(const std::string& option, const RowFacts& row) const;
  bool agrees(const Section& section, const RowFacts& row, const pjl::RecordedLine& line) const;
  bool textAgrees(const Section& section, const RowFacts& row, const pjl::RecordedLine& line) const;
  // Whether a line about the page's or the paper's size, `size` in 1/100 mm, agrees with it.
  bool sizeAgrees(double size, const pjl::RecordedLine& line) const;
  bool isOfCustomPage(const Section& section, const pjl::RecordedLine& line) const;
  bool printsOnPagePaper() const;
  // What the header's writers write for the sections' values, with `value` for `section`.
  bool writtenFor(const Section& section, const std::string& value, const RowFacts& row,
                  const pjl::RecordedLine& line) const;

  const StreamReport& report_;
  const Note& note_;
  std::vector<Option> options_;  // of all sections
};

bool SectionCheck::isJudged(const std::string& option, const RowFacts& row) const {
  const auto hasSection = [&](const std::string& name) {
    return std::ranges::any_of(report_.sections,
                               [&](const Section& section) { return optionName(section) == name; });
  };
  const auto first = std::ranges::find_if(row.options, hasSection);
  return first != row.options.end() && *first == option;
}

bool SectionCheck::writtenFor(const Section& section, const std::string& value, const RowFacts& row,
                              const pjl::RecordedLine& line) const {
  Request request;
  request.options = options_;
  const std::string name = optionName(section);
  std::erase_if(request.options, [&](const Option& option) { return option.name == name; });
  request.options.push_back({name, value});
  const Outcome outcome = outcomeOf(request, line.step);
  const Option* kept = findOption(outcome.options, name);
  const auto written = std::ranges::find_if(outcome.header, [&](const pjl::RecordedLine& other) {
    return other.step == line.step && other.variable == line.variable;
  });
  if (kept == nullptr || kept->value != value || written == outcome.header.end()) return false;
  const bool isChoiceOfVariables = row.variables.size() > 1 && !row.writesAllVariables;
  return isChoiceOfVariables || written->value == line.value;
}

// Whether the line says what the section says. If the section's value is not a choice, such as
// (100) for a zoom rate that is OFF, the choice of its opening comment is compared. The maker's
// dialog sends numbers of its own for choices, and nothing for a switch that is off.
bool SectionCheck::agrees(const Section& section, const RowFacts& row,
                          const pjl::RecordedLine& line) const {
  const std::string value = optionValue(section);
  if (writtenFor(section, value, row, line)) return true;
  if (equalButForCase(value, line.value)) return true;
  if (value.empty() && line.value == "OFF") return true;
  if (report_.isDialogJob && row.table && isDigits(value)) return true;
  const bool isNoChoice = row.table ? !row.hasChoice(value) : isDigits(value);
  return isNoChoice && writtenFor(section, section.choice, row, line);
}

// Texts that come from the computer are only in the header.
bool SectionCheck::textAgrees(const Section& section, const RowFacts& row,
                              const pjl::RecordedLine& line) const {
  const bool isComputers = row.fallback == pjl::Fallback::kComputer && section.value.empty();
  return isComputers || equalButForCase(section.value, line.value);
}

bool SectionCheck::printsOnPagePaper() const {
  return std::ranges::any_of(report_.header, [](const pjl::RecordedLine& line) {
    return line.variable == "PAPER" && line.value == "AUTO";
  });
}

bool SectionCheck::isOfCustomPage(const Section& section, const pjl::RecordedLine& line) const {
  if (section.width > 0) return line.variable == "QVPAGESIZE" && line.value == "CUSTOMSIZE";
  const bool isTarget = section.keyword == "QVTargetPaperSize" && line.variable != "PAPER";
  return isTarget && printsOnPagePaper() &&
         std::ranges::any_of(report_.sections, [](const Section& one) { return one.width > 0; });
}

bool SectionCheck::sizeAgrees(double size, const pjl::RecordedLine& line) const {
  if (line.variable.starts_with("QVTARGET") && !printsOnPagePaper()) return true;
  if (line.value.empty()) return true;  // the header's check names it
  return std::abs(size - std::strtod(line.value.c_str(), nullptr)) <= kSizeTolerance;
}

void SectionCheck::check(const Section& section, const pjl::RecordedLine& line) {
  const RowFacts& row = factsOf(*line.step, report_.isDialogJob);
  const std::string option = optionName(section);
  bool same = true;
  if (const auto size = pageSizeFor(section, line.variable)) {
    same = sizeAgrees(*size, line);
  } else if (isOfCustomPage(section, line)) {
    same = true;  // its size counts, whatever its name
  } else if (isText(row, line)) {
    // The sections of texts have the plain rows' names in every job.
    if (factsOf(*line.step, false).hasOption(option)) same = textAgrees(section, row, line);
  } else if (row.hasOption(option)) {
    if (isJudged(option, row) && !hasText(option)) same = agrees(section, row, line);
  } else if (equalButForCase(section.keyword, line.variable)) {
    const bool comparable = !report_.isDialogJob || row.kind == ValueKind::kCopy;
    same = !comparable || equalButForCase(section.value, line.value);
  }
  if (same) return;
  note_({section.offset,
         "the PostScript says " + section.keyword + " is \"" + optionValue(section) +
             "\", and the header says " + line.variable + "=" + line.value,
         line.variable});
}

void SectionCheck::run() {
  const QuietPlatform quiet;
  if (report_.isDialogJob) options_.push_back({"PrintPDE", "1"});
  for (const Section& section : report_.sections) {
    if (hasText(section.keyword) || optionValue(section).empty()) continue;
    options_.push_back({optionName(section), optionValue(section)});
  }
  for (const Section& section : report_.sections) {
    if (section.value.find("XXX") != std::string::npos) continue;
    for (const pjl::RecordedLine& line : report_.header) {
      if (line.step != nullptr) check(section, line);
    }
  }
}

}  // namespace

void checkSections(const StreamReport& report, const Note& note) {
  SectionCheck(report, note).run();
}

}  // namespace kelm::explain
