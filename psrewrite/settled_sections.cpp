// What the settled options change in the PostScript besides what the feature writers do.
// SPDX-License-Identifier: Apache-2.0
#include "psrewrite/settled_sections.hpp"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "psrewrite/line_tools.hpp"

namespace kelm::psrewrite {
namespace {

constexpr std::string_view kOpening = "%BeginFeature: *";
constexpr std::string_view kClosing = "%%EndFeature";
constexpr std::string_view kRequirements = "%Requirements: numcopies(";
constexpr std::string_view kComment = "RBINumCopies: ";
constexpr std::string_view kCopiesOpening = "RBIBeginNonPPDFeature: *NumCopies ";
constexpr std::string_view kCopiesClosing = "%RBIEndNonPPDFeature";

// The keyword of the section that the line opens, without "Custom"; empty for any other line.
std::string_view keywordOf(std::string_view line) {
  if (!line.starts_with(kOpening)) return {};
  line.remove_prefix(kOpening.size());
  line = line.substr(0, line.find_first_of(" \r\n"));
  if (line.starts_with("CustomQV")) line.remove_prefix(std::string_view("Custom").size());
  return line;
}

// Reads lines until one begins with `closing`; false at the end of the input.
bool takeUpTo(JobStream& stream, LineBuffer& line, std::string_view closing) {
  while (readValueLine(stream, line)) {
    if (std::string_view(line.text()).starts_with(closing)) return true;
  }
  return false;
}

}  // namespace

const job::SectionOverride* sectionOverride(const LineBuffer& line, const job::PrintJobData& job) {
  if (job.overrides.empty()) return nullptr;
  const std::string_view keyword = keywordOf(line.text());
  const auto section = std::ranges::find(job.overrides, keyword, &job::SectionOverride::keyword);
  return section == job.overrides.end() ? nullptr : &*section;
}

std::int32_t nameChoice(LineBuffer& line, const job::SectionOverride& section) {
  const std::string text = std::string(kOpening) + section.keyword + " " + section.choice + "\n";
  if (text.size() >= LineBuffer::kSize) return static_cast<std::int32_t>(std::strlen(line.text()));
  line.overwrite(text);
  return static_cast<std::int32_t>(text.size());
}

bool writeOverride(JobStream& stream, LineBuffer& line, const job::SectionOverride& section) {
  if (section.code.empty()) {
    readValueLine(stream, line);
    return false;
  }
  stream.write(section.code + "\n");
  if (takeUpTo(stream, line, kClosing)) stream.write(line.text());
  return true;
}

bool asksForCopies(const LineBuffer& line, const job::PrintJobData& job) {
  if (job.copiesOfHeader == 0) return false;
  const std::string copies = std::to_string(job.copiesOfHeader);
  const std::string_view text = line.text();
  return text == std::string(kComment) + copies + "\n" ||
         text == std::string(kCopiesOpening) + copies + "\n" ||
         text.starts_with(std::string(kRequirements) + copies + ")");
}

void dropCopies(JobStream& stream, LineBuffer& line) {
  const std::string_view text = line.text();
  if (text.starts_with(kCopiesOpening)) {
    takeUpTo(stream, line, kCopiesClosing);
  } else if (text.starts_with(kRequirements) && text.find(" duplex") != std::string_view::npos) {
    stream.write("%%Requirements: duplex\n");
  }
}

}  // namespace kelm::psrewrite
