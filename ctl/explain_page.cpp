// The explanation of a job, as a page for a web browser.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/explain_page.hpp"

#include <algorithm>
#include <ostream>

#include "ctl/explain_text.hpp"

namespace kelm::ctl {
namespace {

constexpr char kHead[] = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<style>
:root { --paper: #ffffff; --ink: #1c1e21; --faint: #5f6670; --line: #d9dde2; --mark: #0b57d0; --wrong: #b3261e; --wash: #fdecea; }
@media (prefers-color-scheme: dark) {
  :root { --paper: #16181c; --ink: #e7e9ec; --faint: #a0a7b1; --line: #343a42; --mark: #8ab4f8; --wrong: #ff9a91; --wash: #3a1f1d; }
}
body { margin: 0 auto; max-width: 60rem; padding: 1rem; background: var(--paper); color: var(--ink); font: 1rem/1.45 system-ui, sans-serif; }
h1 { font-size: 1.4rem; } h2 { font-size: 1.1rem; margin-top: 2rem; border-bottom: 1px solid var(--line); }
dl { display: grid; grid-template-columns: minmax(9rem, 2fr) 3fr; gap: .4rem 1rem; margin: 0; }
dt { color: var(--faint); } dd { margin: 0; overflow-wrap: anywhere; }
.changed { color: var(--mark); font-weight: 600; } .source { display: block; color: var(--faint); font-size: .85rem; font-weight: 400; }
.wrong { background: var(--wash); color: var(--wrong); padding: .6rem 1rem; border-left: 4px solid var(--wrong); overflow-wrap: anywhere; }
ul.wrong { padding-left: 2rem; }
pre { overflow-x: auto; font-size: .85rem; border: 1px solid var(--line); padding: .8rem; }
@media (max-width: 32rem) { dl { grid-template-columns: 1fr; gap: 0; } dd { margin-bottom: .7rem; } }
</style>
)";

std::string escaped(const std::string& text) {
  std::string html;
  for (const char c : text) {
    switch (c) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      default:
        html += c;
    }
  }
  return html;
}

void writeSetting(std::ostream& out, const explain::Line& line, bool hasSources) {
  const bool lacksChoice = line.origin == explain::Origin::kNoSuchChoice;
  const char* kind = lacksChoice ? "wrong" : line.changed ? "changed" : "same";
  const std::string choice = line.label.choice.empty() ? "(empty)" : line.label.choice;
  out << "<dt>" << escaped(shownText(line.label.name)) << "</dt><dd class=\"" << kind << "\">"
      << escaped(shownText(choice));
  if (hasSources) out << "<span class=\"source\">" << escaped(sourceText(line)) << "</span>";
  out << "</dd>\n";
}

std::vector<std::string> groupsOf(const std::vector<explain::Line>& lines) {
  std::vector<std::string> groups;
  for (const explain::Line& line : lines) {
    const bool known = std::ranges::find(groups, line.group) != groups.end();
    if (!line.variable.empty() && !known) groups.push_back(line.group);
  }
  return groups;
}

void writeGroup(std::ostream& out, const Page& page, const std::string& group) {
  out << "<h2>" << (group.empty() ? "Other settings" : escaped(shownText(group)))
      << "</h2>\n<dl>\n";
  for (const bool changed : {true, false}) {
    for (const explain::Line& line : page.lines) {
      if (line.variable.empty() || line.group != group || line.changed != changed) continue;
      writeSetting(out, line, page.hasSources);
    }
  }
  out << "</dl>\n";
}

void writeProblems(std::ostream& out, const std::vector<std::string>& problems) {
  if (problems.empty()) return;
  out << "<ul class=\"wrong\">\n";
  for (const std::string& problem : problems) out << "<li>" << escaped(problem) << "</li>\n";
  out << "</ul>\n";
}

}  // namespace

void writePage(std::ostream& out, const Page& page) {
  const std::string title = escaped(shownText(page.title));
  out << kHead << "<title>" << title << "</title>\n</head>\n<body>\n<h1>" << title << "</h1>\n";
  writeProblems(out, page.problems);
  for (const std::string& group : groupsOf(page.lines)) writeGroup(out, page, group);
  out << "<h2>Header</h2>\n<pre>\n";
  for (const explain::Line& line : page.lines) out << escaped(lineText(line)) << "\n";
  out << "</pre>\n</body>\n</html>\n";
}

}  // namespace kelm::ctl
