// What a printer stream says: its header, and the feature sections of its PostScript.
// SPDX-License-Identifier: Apache-2.0
#include "explain/stream.hpp"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <string_view>
#include <utility>

#include "base/number_text.hpp"
#include "explain/block_reader.hpp"
#include "explain/header_check.hpp"
#include "explain/section_check.hpp"

namespace kelm::explain {
namespace {

constexpr std::size_t kMostHeaderBytes = 1U << 20U;
constexpr std::size_t kMostHeaderLines = 1000;
constexpr std::size_t kMostSections = 512;
constexpr std::size_t kMostFindings = 200;
constexpr std::size_t kMostSectionLines = 16;
constexpr std::size_t kMostShown = 4096;  // bytes of a value
constexpr std::string_view kUel = "\x1B%-12345X";
constexpr std::string_view kEnter = "@PJL ENTER LANGUAGE=POSTSCRIPT";
constexpr std::string_view kBegin = "%%BeginFeature:";
constexpr std::string_view kEnd = "%%EndFeature";
// How CUPS asks for copies.
constexpr std::string_view kCopiesComment = "%RBINumCopies: ";
constexpr std::string_view kCopiesSection = "%RBIBeginNonPPDFeature: *NumCopies ";
constexpr std::size_t kLongestNumber = 16;

std::string_view firstWord(std::string_view& text) {
  const std::size_t begin = std::min(text.find_first_not_of(" \t"), text.size());
  const std::size_t end = std::min(text.find_first_of(" \t", begin), text.size());
  const std::string_view word = text.substr(begin, end - begin);
  text.remove_prefix(end);
  return word;
}

// Removes a PostScript string in parentheses from the front of `text`; returns the string's text.
std::optional<std::string> takeString(std::string_view& text) {
  if (!text.starts_with('(')) return std::nullopt;
  std::string value;
  int depth = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\\' && i + 1 < text.size()) {
      value += text[++i];
      continue;
    }
    if (c == '(' && ++depth == 1) continue;
    if (c == ')' && --depth == 0) {
      text.remove_prefix(i + 1);
      return value;
    }
    value += c;
  }
  return std::nullopt;
}

struct Entry {
  std::string keyword;
  std::string value;
};

// "(VALUE) userdict exch /KEYWORD exch put"; a custom number is in the line before, and this one
// makes a string of it.
std::optional<Entry> entryOf(std::string_view line, std::string_view lineBefore) {
  auto value = takeString(line);
  constexpr std::string_view kToString = "20 string cvs ";
  if (!value && line.starts_with(kToString) && base::wholeReal(lineBefore)) {
    value = std::string(lineBefore);
    line.remove_prefix(kToString.size());
  }
  if (!value || firstWord(line) != "userdict" || firstWord(line) != "exch") return std::nullopt;
  const std::string_view name = firstWord(line);
  if (!name.starts_with('/') || firstWord(line) != "exch" || firstWord(line) != "put") {
    return std::nullopt;
  }
  return Entry{std::string(name.substr(1)), std::move(*value)};
}

// "<</PageSize [WIDTH HEIGHT] ..."
void readPageSize(std::string_view line, Section& section) {
  constexpr std::string_view kSize = "/PageSize [";
  const std::size_t begin = line.find(kSize);
  if (begin == std::string_view::npos) return;
  std::string_view numbers = line.substr(begin + kSize.size());
  numbers = numbers.substr(0, numbers.find(']'));
  const auto width = base::wholeReal(firstWord(numbers));
  const auto height = base::wholeReal(firstWord(numbers));
  if (!width || !height) return;
  section.width = *width;
  section.height = *height;
}

// A custom page size has its width and its height in its first two lines.
void makeCustomPage(const std::array<std::string, 2>& lines, Section& section) {
  section.keyword = "PageSize";
  section.choice = "Custom." + lines[0] + "x" + lines[1];
  section.width = base::wholeReal(lines[0]).value_or(0);
  section.height = base::wholeReal(lines[1]).value_or(0);
}

class StreamReader {
 public:
  explicit StreamReader(base::ByteSource& source) : reader_(source) {}

  StreamReport read() {
    readHeader();
    readPostScript();
    report_.size = reader_.offset();
    checkSections(report_, [this](Finding finding) { note(std::move(finding)); });
    return std::move(report_);
  }

 private:
  void note(Finding finding) {
    if (report_.findings.size() < kMostFindings)
      return report_.findings.push_back(std::move(finding));
    ++report_.moreFindings;
  }

  void readHeader();
  void readPostScript();
  void readSection(std::uint64_t offset);
  void keep(Section section);
  void meetUel();
  void meetCopies();

  BlockReader reader_;
  StreamReport report_;
  bool asksForCopies_ = false;
};

void StreamReader::readHeader() {
  HeaderCheck check([this](Finding finding) { note(std::move(finding)); });
  while (reader_.require(1)) {
    const std::uint64_t offset = reader_.offset();
    if (offset > kMostHeaderBytes || check.lineCount() > kMostHeaderLines) {
      note({offset, "the header is too long; the rest is not read as header lines"});
      break;
    }
    reader_.require(kUel.size() + 1);
    const char first = reader_.window().front();
    if (first != '@' && first != '\x1B') break;
    const std::string line(*reader_.line());
    check.take(offset, line);
    if (line == kEnter) break;
  }
  check.finish(reader_.offset());
  report_.isDialogJob = check.isDialogJob();
  report_.header = check.takeLines();
}

void StreamReader::meetUel() {
  const std::size_t rest = kUel.size() - 1;  // its escape character is consumed
  reader_.require(rest + 4);
  const bool more = reader_.window().substr(rest).starts_with("@PJL");
  if (more) note({reader_.offset(), "another job begins here; explain it separately"});
  reader_.consume(rest);
}

// If the PostScript asks for copies, the printer would make them of each copy that the header asks
// for.
void StreamReader::meetCopies() {
  reader_.require(kCopiesSection.size() + kLongestNumber);
  std::string_view text = reader_.window();
  if (text.starts_with(kCopiesComment)) {
    text.remove_prefix(kCopiesComment.size());
  } else if (text.starts_with(kCopiesSection)) {
    text.remove_prefix(kCopiesSection.size());
  } else {
    return;
  }
  const std::string number(text.substr(0, text.find_first_not_of("0123456789")));
  const auto copies = base::wholeReal(std::string_view(number).substr(0, kLongestNumber));
  if (!copies || *copies <= 1 || asksForCopies_) return;
  asksForCopies_ = true;
  for (const pjl::RecordedLine& line : report_.header) {
    if (line.variable != "QTY" && line.variable != "COPIES") continue;
    note({reader_.offset(),
          "the PostScript asks for " + number + " copies, and the header says " + line.variable +
              "=" + line.value,
          line.variable});
  }
}

void StreamReader::readPostScript() {
  reader_.require(2);
  if (!reader_.window().starts_with("%!")) {
    note({reader_.offset(), "the header is not followed by PostScript (%!)"});
  }
  bool afterEscape = false;  // the byte before the window
  while (reader_.require(1)) {
    const std::string_view window = reader_.window();
    const std::size_t percent = std::min(window.find('%'), window.size());
    if (percent > 0) {
      afterEscape = window[percent - 1] == '\x1B';
      reader_.consume(percent);
      continue;
    }
    reader_.require(kBegin.size());
    const std::string_view text = reader_.window();
    if (text.starts_with(kBegin)) {
      readSection(reader_.offset());
    } else if (afterEscape && text.starts_with(kUel.substr(1))) {
      meetUel();
    } else {
      meetCopies();
      reader_.consume(1);
    }
    afterEscape = false;
  }
}

void StreamReader::readSection(std::uint64_t offset) {
  const std::string opening(reader_.line().value_or("").substr(0, kMostShown));
  std::string_view words = std::string_view(opening).substr(kBegin.size());
  Section section{std::string(firstWord(words)), std::string(firstWord(words)), "", offset};
  if (section.keyword.starts_with('*')) section.keyword.erase(0, 1);
  const std::string keyword = section.keyword;
  bool found = false;
  std::array<std::string, 2> first;
  std::string before;
  for (std::size_t i = 0; i < kMostSectionLines; ++i) {
    const auto line = reader_.line();
    if (!line || line->starts_with(kEnd)) break;
    const std::string_view text = line->substr(0, kMostShown);
    if (i < first.size()) first[i] = text.substr(0, kLongestNumber);
    if (keyword == "PageSize") readPageSize(text, section);
    auto entry = entryOf(text, before);
    before = text.substr(0, kLongestNumber);
    if (!entry) continue;
    found = true;
    section.keyword = std::move(entry->keyword);
    section.value = std::move(entry->value);
    keep(section);
  }
  if (keyword == "CustomPageSize") makeCustomPage(first, section);
  if (!found && section.keyword == "PageSize") keep(std::move(section));
}

// A section of the printer, or the page size.
void StreamReader::keep(Section section) {
  if (!section.keyword.starts_with("QV") && section.keyword != "PageSize") return;
  if (section.value.find("XXX") != std::string::npos) {
    note({section.offset, "the section of " + section.keyword + " still has XXX as its value"});
  }
  const auto same = std::ranges::find(report_.sections, section.keyword, &Section::keyword);
  if (same == report_.sections.end()) {
    if (report_.sections.size() < kMostSections) report_.sections.push_back(std::move(section));
  } else if (section.keyword != "PageSize" && same->value != section.value) {
    note({section.offset, section.keyword + " is \"" + section.value + "\" here and \"" +
                              same->value + "\" before"});
  }
}

}  // namespace

StreamReport readStream(base::ByteSource& source) { return StreamReader(source).read(); }

}  // namespace kelm::explain
