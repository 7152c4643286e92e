// The explanation of a job, as text and as JSON.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/explain_text.hpp"

#include <algorithm>
#include <cstdio>
#include <ostream>

#include "base/utf.hpp"
#include "ctl/json.hpp"
#include "ctl/safe_text.hpp"

namespace kelm::ctl {
namespace {

constexpr std::size_t kMeaningWidth = 44;  // characters
constexpr std::size_t kLineWidth = 34;

std::string hexByte(char byte) {
  char text[8];
  std::snprintf(text, sizeof text, "\\x%02X", static_cast<unsigned char>(byte));
  return text;
}

// `text`, padded to `width` characters and with at least two spaces at its end.
std::string padded(const std::string& text, std::size_t width) {
  const auto isFirstByte = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
  const auto length =
      static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isFirstByte));
  return text + std::string(length + 2 > width ? 2 : width - length, ' ');
}

const char* giverText(explain::Giver giver) {
  switch (giver) {
    case explain::Giver::kJob:
      return "";
    case explain::Giver::kUserDefaults:
      return " (in ~/.cups/lpoptions)";
    case explain::Giver::kHostDefaults:
      return " (in " KELM_CUPS_SERVERROOT "/lpoptions)";
    case explain::Giver::kQueue:
      return " (the queue's default)";
  }
  return "";
}

const char* giverWord(explain::Giver giver) {
  switch (giver) {
    case explain::Giver::kJob:
      return "job";
    case explain::Giver::kUserDefaults:
      return "user-lpoptions";
    case explain::Giver::kHostDefaults:
      return "system-lpoptions";
    case explain::Giver::kQueue:
      return "queue";
  }
  return "";
}

std::string optionText(const explain::Option& option) {
  const bool plain = option.value.find(' ') == std::string::npos;
  const std::string value = plain ? option.value : "\"" + option.value + "\"";
  const char* separator = option.name.starts_with('-') ? " " : "=";
  return shownText(option.name + separator + value) + giverText(option.giver);
}

std::string listText(const std::vector<explain::Option>& options) {
  std::string text;
  for (const explain::Option& option : options) {
    text += (text.empty() ? "" : ", ") + optionText(option);
  }
  return text;
}

}  // namespace

std::string lineText(const explain::Line& line) {
  if (line.variable.empty()) return shownText(line.value);
  return shownText("@PJL SET " + line.variable + "=" + line.value);
}

std::string meaningText(const explain::Line& line) {
  if (line.variable.empty()) return "";
  const std::string choice = line.label.choice.empty() ? "(empty)" : line.label.choice;
  return shownText(line.label.name + ": " + choice);
}

std::vector<std::string> problemTexts(const explain::StreamReport& report) {
  std::vector<std::string> texts;
  for (const explain::Finding& finding : report.findings) {
    texts.push_back("at byte " + std::to_string(finding.offset) + ": " +
                    shownText(finding.problem));
  }
  if (report.moreFindings > 0) {
    texts.push_back("in " + std::to_string(report.moreFindings) + " more places");
  }
  return texts;
}

std::vector<std::string> sectionTexts(const explain::StreamReport& report) {
  std::vector<std::string> texts;
  for (const explain::Section& section : report.sections) {
    const std::string& value = section.value.empty() ? section.choice : section.value;
    texts.push_back(shownText(section.keyword + "=" + value));
  }
  return texts;
}

namespace {

Json jsonOf(const std::vector<explain::Option>& options) {
  Json list = Json::array();
  for (const explain::Option& option : options) {
    list.push_back(
        {{"option", option.name}, {"value", option.value}, {"from", giverWord(option.giver)}});
  }
  return list;
}

Json jsonOf(const explain::Line& line) {
  return {{"variable", line.variable.empty() ? Json() : Json(line.variable)},
          {"value", line.value},
          {"name", line.label.name},
          {"meaning", line.label.choice},
          {"group", line.label.group},
          {"source", explain::wordFor(line.origin)},
          {"options", jsonOf(line.causes)},
          {"became", jsonOf(line.became)},
          {"changed", line.changed}};
}

Json jsonOf(const explain::Remark& remark) {
  return {{"option", remark.option.name},
          {"value", remark.option.value},
          {"problem", remark.problem},
          {"choices", remark.choices},
          {"nearest", remark.nearest}};
}

}  // namespace

std::string shownText(std::string_view text) {
  if (base::utf16Length(text)) return safeText(text);
  std::string shown;
  for (const char byte : text) {
    const bool ascii = static_cast<unsigned char>(byte) < 0x80U;
    shown += ascii ? safeText(std::string_view(&byte, 1)) : hexByte(byte);
  }
  return shown;
}

std::string sourceText(const explain::Line& line) {
  switch (line.origin) {
    case explain::Origin::kFixed:
      return "the same for every job";
    case explain::Origin::kJob:
    case explain::Origin::kNoSuchChoice: {
      std::string text = "from " + listText(line.causes);
      if (!line.became.empty()) text += " (as " + listText(line.became) + ")";
      const bool lacks = line.origin == explain::Origin::kNoSuchChoice;
      return lacks ? "EMPTY: the printer has no such choice, " + text : text;
    }
    case explain::Origin::kPpdDefault:
      return "default of the queue's PPD";
    case explain::Origin::kTableDefault:
      return "default";
    case explain::Origin::kComputer:
      return "from this computer";
    case explain::Origin::kJobTitle:
      return "the job's title";
  }
  return "";
}

std::string remarkText(const explain::Remark& remark) {
  std::string text = optionText(remark.option) + " " + shownText(remark.problem);
  if (!remark.nearest.empty()) text += "; did you mean " + shownText(remark.nearest) + "?";
  if (remark.choices.empty()) return text;
  text += remark.nearest.empty() ? "; the choices are" : " The choices are";
  for (const std::string& choice : remark.choices) text += " " + shownText(choice);
  return text;
}

void printExplanation(std::ostream& out, const explain::Explanation& explanation,
                      bool changedOnly) {
  std::size_t hidden = 0;
  for (const explain::Line& line : explanation.lines) {
    if (changedOnly && !line.changed) {
      ++hidden;
      continue;
    }
    out << padded(meaningText(line), kMeaningWidth) << padded(lineText(line), kLineWidth)
        << sourceText(line) << '\n';
  }
  if (hidden > 0) {
    out << "(" << hidden << " more lines are as in a job without options; --all shows them)\n";
  }
}

void printExplanationJson(std::ostream& out, const explain::Explanation& explanation) {
  Json lines = Json::array();
  for (const explain::Line& line : explanation.lines) lines.push_back(jsonOf(line));
  Json remarks = Json::array();
  for (const explain::Remark& remark : explanation.remarks) remarks.push_back(jsonOf(remark));
  const Json object{{"lines", lines}, {"remarks", remarks}};
  out << textOf(object, JsonLayout::kIndented) << '\n';
}

void printStream(std::ostream& out, const explain::StreamReport& report, ppd_file_t* ppd,
                 bool changedOnly) {
  for (const std::string& problem : problemTexts(report)) out << "WRONG " << problem << '\n';
  std::size_t hidden = 0;
  for (const explain::Line& line : explain::linesOf(report, ppd)) {
    if (changedOnly && !line.changed) {
      ++hidden;
      continue;
    }
    out << padded(meaningText(line), kMeaningWidth) << lineText(line) << '\n';
  }
  for (const explain::Section& section : report.sections) {
    if (changedOnly) break;
    const std::string& value = section.value.empty() ? section.choice : section.value;
    out << padded("PostScript at byte " + std::to_string(section.offset), kMeaningWidth)
        << shownText(section.keyword + "=" + value) << '\n';
  }
  if (hidden > 0) {
    out << "(" << hidden
        << " more lines are as in a job without options; --all shows them and the sections)\n";
  }
  out << report.header.size() << " lines of header, " << report.sections.size() << " sections, "
      << report.size << " bytes, " << report.findings.size() + report.moreFindings << " wrong\n";
}

void printStreamJson(std::ostream& out, const explain::StreamReport& report, ppd_file_t* ppd) {
  Json object{{"size", report.size},       {"dialog", report.isDialogJob},
              {"header", Json::array()},   {"sections", Json::array()},
              {"findings", Json::array()}, {"moreFindings", report.moreFindings}};
  for (const explain::Line& line : explain::linesOf(report, ppd)) {
    object["header"].push_back({{"variable", line.variable.empty() ? Json() : Json(line.variable)},
                                {"value", line.value},
                                {"name", line.label.name},
                                {"meaning", line.label.choice},
                                {"changed", line.changed}});
  }
  for (const explain::Section& section : report.sections) {
    object["sections"].push_back({{"keyword", section.keyword},
                                  {"choice", section.choice},
                                  {"value", section.value},
                                  {"offset", section.offset}});
  }
  for (const explain::Finding& finding : report.findings) {
    object["findings"].push_back(
        {{"offset", finding.offset}, {"problem", finding.problem}, {"variable", finding.variable}});
  }
  out << textOf(object, JsonLayout::kIndented) << '\n';
}

}  // namespace kelm::ctl
