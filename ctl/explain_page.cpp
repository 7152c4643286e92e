// The explanation of a job, as a page for a web browser.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/explain_page.hpp"

#include <algorithm>
#include <ostream>
#include <set>
#include <sstream>

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
:root { --paper: #ffffff; --card: #f6f7f9; --ink: #1c1e21; --faint: #5a616b; --line: #d9dde2; --mark: #0b57d0; --wrong: #a3201a; --wash: #fdecea; }
@media (prefers-color-scheme: dark) {
  :root { --paper: #16181c; --card: #1f2227; --ink: #e7e9ec; --faint: #a6adb7; --line: #3a4049; --mark: #8ab4f8; --wrong: #ffb4ab; --wash: #43211e; }
}
* { box-sizing: border-box; }
body { margin: 0 auto; max-width: 62rem; padding: 1rem 1.2rem 3rem; background: var(--paper); color: var(--ink); font: 1rem/1.5 system-ui, sans-serif; }
h1 { font-size: 1.5rem; line-height: 1.25; margin: .5rem 0 0; overflow-wrap: anywhere; }
h2 { font-size: 1.1rem; margin: 2rem 0 .5rem; padding-bottom: .25rem; border-bottom: 1px solid var(--line); }
.sum { color: var(--faint); margin: .3rem 0 1rem; }
.pages { display: flex; flex-wrap: wrap; gap: 1rem; margin: 1rem 0; }
.pages figure { margin: 0; }
.pages img { display: block; max-width: 9rem; max-height: 12rem; border: 1px solid var(--line); background: #fff; }
.pages figcaption { color: var(--faint); font-size: .85rem; text-align: center; margin-top: .25rem; }
dl { display: grid; grid-template-columns: minmax(10rem, 2fr) 3fr; gap: 0 1rem; margin: 0; }
dt, dd { padding: .35rem 0; margin: 0; overflow-wrap: anywhere; }
dt { color: var(--faint); }
.source { display: block; color: var(--faint); font-size: .85rem; font-weight: 400; }
dd.changed { color: var(--mark); font-weight: 600; }
dd.wrong { color: var(--wrong); background: var(--wash); border-left: 4px solid var(--wrong); padding-left: .7rem; font-weight: 600; }
dd.wrong .source, ul.wrong { color: var(--wrong); }
ul.wrong { background: var(--wash); border-left: 4px solid var(--wrong); padding: .6rem 1rem .6rem 2rem; margin: 1rem 0; overflow-wrap: anywhere; }
details { margin-top: .3rem; } summary { color: var(--faint); cursor: pointer; padding: .25rem 0; }
pre { overflow-x: auto; font-size: .82rem; line-height: 1.45; background: var(--card); border: 1px solid var(--line); padding: .8rem; margin: .5rem 0; }
@media (max-width: 34rem) {
  body { padding: .8rem .9rem 2rem; }
  dl { grid-template-columns: 1fr; } dt { padding-bottom: 0; } dd { padding-top: 0; }
  .pages img { max-width: 7rem; }
}
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

std::string base64(const std::string& bytes) {
  constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    unsigned group = 0;
    for (std::size_t j = i; j < i + 3; ++j) {
      group = group << 8U | (j < bytes.size() ? static_cast<unsigned char>(bytes[j]) : 0U);
    }
    for (std::size_t j = 0; j < 4; ++j) {
      const bool isThere = i + j < bytes.size() + 1;
      text += isThere ? kDigits[group >> (18U - 6U * j) & 63U] : '=';
    }
  }
  return text;
}

enum class Kind { kWrong, kChanged, kSame };

Kind kindOf(const Page& page, const explain::Line& line) {
  if (line.origin == explain::Origin::kNoSuchChoice || page.wrong.contains(line.variable)) {
    return Kind::kWrong;
  }
  return line.changed ? Kind::kChanged : Kind::kSame;
}

void writeSetting(std::ostream& out, const Page& page, const explain::Line& line) {
  constexpr const char* kClasses[] = {"wrong", "changed", "same"};
  const std::string choice = line.label.choice.empty() ? "(empty)" : line.label.choice;
  out << "<dt>" << escaped(shownText(line.label.name)) << "</dt><dd class=\""
      << kClasses[static_cast<int>(kindOf(page, line))] << "\">" << escaped(shownText(choice));
  if (page.hasSources) out << "<span class=\"source\">" << escaped(sourceText(line)) << "</span>";
  const auto wrong = page.wrong.find(line.variable);
  if (wrong != page.wrong.end()) {
    out << "<span class=\"source\">" << escaped(wrong->second) << "</span>";
  }
  out << "</dd>\n";
}

// In the header's order, those without changes last.
std::vector<std::string> groupsOf(const Page& page) {
  std::vector<std::string> groups;
  std::set<std::string> changed;
  for (const explain::Line& line : page.lines) {
    if (line.variable.empty()) continue;
    const bool known = std::ranges::find(groups, line.label.group) != groups.end();
    if (!known) groups.push_back(line.label.group);
    if (kindOf(page, line) != Kind::kSame) changed.insert(line.label.group);
  }
  // Not std::ranges::stable_partition: clang 14 cannot compile it with the library of g++ 12.
  std::stable_partition(groups.begin(), groups.end(),
                        [&](const std::string& group) { return changed.contains(group); });
  return groups;
}

// The group's settings of one kind; how many there are.
std::size_t writeSettings(std::ostream& out, const Page& page, const std::string& group,
                          Kind kind) {
  std::size_t count = 0;
  for (const explain::Line& line : page.lines) {
    if (line.variable.empty() || line.label.group != group || kindOf(page, line) != kind) continue;
    writeSetting(out, page, line);
    ++count;
  }
  return count;
}

void writeGroup(std::ostream& out, const Page& page, const std::string& group) {
  out << "<h2>" << (group.empty() ? "Other settings" : escaped(shownText(group)))
      << "</h2>\n<dl>\n";
  writeSettings(out, page, group, Kind::kWrong);
  writeSettings(out, page, group, Kind::kChanged);
  out << "</dl>\n";
  std::ostringstream same;
  const std::size_t count = writeSettings(same, page, group, Kind::kSame);
  if (count == 0) return;
  out << "<details><summary>" << count << " as in a job without options</summary>\n<dl>\n"
      << same.str() << "</dl></details>\n";
}

void writePictures(std::ostream& out, const std::vector<std::string>& pictures) {
  if (pictures.empty()) return;
  out << "<div class=\"pages\">\n";
  int number = 0;
  for (const std::string& picture : pictures) {
    ++number;
    out << "<figure><img alt=\"Page " << number << "\" src=\"data:image/png;base64,"
        << base64(picture) << "\"><figcaption>Page " << number << "</figcaption></figure>\n";
  }
  out << "</div>\n";
}

void writeSummary(std::ostream& out, const Page& page) {
  const auto changed =
      std::ranges::count_if(page.lines, [](const explain::Line& line) { return line.changed; });
  out << "<p class=\"sum\">" << changed << (changed == 1 ? " setting differs" : " settings differ")
      << " from a job without options; "
      << (page.problems.empty() ? std::string("nothing is wrong")
                                : std::to_string(page.problems.size()) + " wrong")
      << ".</p>\n";
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
  writeSummary(out, page);
  writePictures(out, page.pictures);
  writeProblems(out, page.problems);
  for (const std::string& group : groupsOf(page)) writeGroup(out, page, group);
  out << "<h2>Header</h2>\n<pre>\n";
  for (const explain::Line& line : page.lines) out << escaped(lineText(line)) << "\n";
  out << "</pre>\n";
  if (!page.sections.empty()) {
    out << "<h2>PostScript</h2>\n<pre>\n";
    for (const std::string& section : page.sections) out << escaped(section) << "\n";
    out << "</pre>\n";
  }
  out << "</body>\n</html>\n";
}

}  // namespace kelm::ctl
