// The writers that every line of the header goes through.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/writers.hpp"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "base/hex_text.hpp"
#include "job/custom_paper.hpp"
#include "job/diagnostics.hpp"

namespace kelm::pjl {
namespace {

void writeText(std::FILE* stream, std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stream);
}

void beginLine(std::FILE* stream, const char* pjlName) {
  writeText(stream, "@PJL SET ");
  writeText(stream, pjlName);
  writeText(stream, "=");
}

void endLine(std::FILE* stream, std::string_view value) {
  writeText(stream, value);
  writeText(stream, "\n");
}

// The value of the first row with this key, or an empty value.
const char* valueFor(std::span<const ValueRow> rows, std::string_view key) {
  for (const ValueRow& row : rows) {
    if (row.key != nullptr && key == row.key) return row.value;
  }
  return "";
}

const char* valueAt(std::span<const ValueRow> rows, std::size_t index) {
  return index < rows.size() && rows[index].value != nullptr ? rows[index].value : "";
}

// The value of the variable `pjlName` without its option.
const char* absentValue(const PrintJobData& job, std::string_view pjlName,
                        std::span<const ValueRow> rows, std::size_t defaultIndex) {
  if (pjlName == "QVPAGESIZE") {
    const char* media = cupsGetOption("media", job.numOptions, job.options);
    if (media != nullptr) {
      return std::strstr(media, "Custom") != nullptr ? "CUSTOMSIZE" : valueFor(rows, media);
    }
  }
  return pjlName == "PAPER" ? "AUTO" : valueAt(rows, defaultIndex);
}

char upperCase(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

void Output_Value(std::FILE* stream, const PrintJobData& /*job*/, const char* pjlName,
                  const char* text) {
  beginLine(stream, pjlName);
  endLine(stream, text);
}

void Output_LineBreak(std::FILE* stream) { writeText(stream, "\n"); }

void Output_CopyValue(std::FILE* stream, const PrintJobData& job, const char* optionKey,
                      const char* pjlName, const char* defaultText) {
  std::string text;
  if (!getOptionValue(&job, optionKey, text)) text = defaultText;
  beginLine(stream, pjlName);
  endLine(stream, text);
}

void Output_CopyValueWithUpperCase(std::FILE* stream, const PrintJobData& job,
                                   const char* optionKey, const char* pjlName,
                                   const char* defaultText) {
  std::string text;
  if (getOptionValue(&job, optionKey, text)) {
    std::transform(text.begin(), text.end(), text.begin(), upperCase);
  } else {
    text = defaultText;
  }
  beginLine(stream, pjlName);
  endLine(stream, text);
}

void Output_KeyValue(std::FILE* stream, const PrintJobData& job, const char* optionKey,
                     const char* pjlName, std::span<const ValueRow> rows,
                     std::size_t defaultIndex) {
  std::string text;
  const bool present = getOptionValue(&job, optionKey, text);
  beginLine(stream, pjlName);
  endLine(stream, present ? valueFor(rows, text) : absentValue(job, pjlName, rows, defaultIndex));
}

void Output_ValueWithArray(std::FILE* stream, const PrintJobData& /*job*/, const char* pjlName,
                           const char* choiceText, std::span<const ValueRow> rows, bool hexFlag) {
  const std::string value = valueFor(rows, choiceText);
  beginLine(stream, pjlName);
  endLine(stream, hexFlag ? base::hexTextInBuffer(value) : value);
}

int Output_IfValueContains(std::FILE* stream, const PrintJobData& job, const char* optionKey,
                           const char* needle, const char* pjlName, const char* text) {
  std::string value;
  if (!getOptionValue(&job, optionKey, value) || value.find(needle) == std::string::npos) return 0;
  Output_Value(stream, job, pjlName, text);
  return 1;
}

void Output_OrientationValue(std::FILE* stream, const PrintJobData& job, const char* optionKey,
                             const char* pjlName, std::span<const OrientationRow> rows,
                             std::size_t defaultIndex) {
  beginLine(stream, pjlName);
  std::string text;
  if (!getOptionValue(&job, optionKey, text)) {
    const bool landscape = job::widthLength > job::heighLength;
    const bool known = defaultIndex < rows.size();
    if (known) job::LogMessage(landscape ? "201608291" : "201608292", true);
    return endLine(stream, known ? rows[landscape ? 1 : 0].value : "");
  }
  const auto row = std::find_if(rows.begin(), rows.end(), [&](const OrientationRow& candidate) {
    return text == candidate.name || text == candidate.digit;
  });
  if (row == rows.end()) return endLine(stream, "");
  job::LogMessage("20160526", true);
  job::LogMessage(pjlName, true);
  job::LogMessage("=", true);
  job::LogMessage(text.c_str(), true);
  endLine(stream, row->value);
}

std::size_t Output_GetDefaultIndexWithArray(const char* text, std::span<const char* const> array) {
  for (std::size_t i = 0; i < array.size(); ++i) {
    if (array[i] != nullptr && std::strcmp(array[i], text) == 0) return i;
  }
  return 0;
}

bool isValueEqual(const void* /*ignored*/, const PrintJobData& job, const char* optionKey,
                  const char* text) {
  std::string value;
  return getOptionValue(&job, optionKey, value) && value == text;
}

}  // namespace kelm::pjl
