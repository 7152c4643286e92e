// Rewriters of a single line that write it with a line feed of their own.
// SPDX-License-Identifier: Apache-2.0
#include "psrewrite/line_rewriters.hpp"

#include <cstring>
#include <string_view>

#include "job/diagnostics.hpp"
#include "psrewrite/line_tools.hpp"

namespace kelm::psrewrite {
namespace {

void writeLine(JobStream& stream, std::string_view line) {
  stream.write(line);
  stream.write("\n");
}

bool readLineWithoutEnding(JobStream& stream, LineBuffer& line) {
  line.clear();
  return fgetline(stream, line.data(), LineBuffer::kSize) != nullptr;
}

bool replaceInNextLine(JobStream& stream, LineBuffer& line, const char* from, const char* to) {
  job::LogMessage("2016hahaha1", true);
  if (!readLineWithoutEnding(stream, line)) return false;
  job::LogMessage("2016hahaha2", true);
  const auto rewritten = replace_str(line.text(), from, to);
  job::LogMessage("2016hahaha3", true);
  if (!rewritten) return false;
  job::LogMessage("2016hahaha4", true);
  writeLine(stream, *rewritten);
  job::LogMessage("20160901-002", true);
  job::LogMessage("2016hahaha5", true);
  return true;
}

}  // namespace

bool outputQVCustomOrientation(JobStream& stream, LineBuffer& line, bool landscapeToPortrait) {
  if (!readLineWithoutEnding(stream, line)) return false;
  const auto turned = landscapeToPortrait ? replace_str(line.text(), "Landscape", "Portrait")
                                          : replace_str(line.text(), "Portrait", "Landscape");
  writeLine(stream, turned ? std::string_view(*turned) : std::string_view(line.text()));
  return true;
}

bool outputFeatureByCustomSizeValue(JobStream& stream, LineBuffer& line, const char* value) {
  return replaceInNextLine(stream, line, kPlaceholder, value);
}

bool outputFeatureByCustomSizeValueFLG(JobStream& stream, LineBuffer& line, const char* value) {
  return replaceInNextLine(stream, line, "Auto", value);
}

std::int32_t outputFeatureByCustomSizeTitle(JobStream& stream, const char* line, const char* from,
                                            const char* to) {
  if (line == nullptr) return -1;
  const auto rewritten = replace_str(line, from, to);
  if (!rewritten) return -1;
  stream.writeUnlogged(*rewritten);
  stream.writeUnlogged("\n");
  return static_cast<std::int32_t>(std::strlen(line));
}

std::int32_t outputFeatureByCustomSizeValueTitle(JobStream& stream, const char* line,
                                                 const char* from, const char* to) {
  if (line == nullptr) return -1;
  job::LogMessage("20160901-003", true);
  job::LogMessage(line, true);
  const auto rewritten = replace_str(line, from, to);
  if (!rewritten) return -1;
  writeLine(stream, *rewritten);
  job::LogMessage("20160901-002", true);
  job::LogMessage(rewritten->c_str(), true);
  return static_cast<std::int32_t>(std::strlen(line));
}

}  // namespace kelm::psrewrite
