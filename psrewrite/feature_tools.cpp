// The operations that feature writers are made of.
// SPDX-License-Identifier: Apache-2.0
#include "psrewrite/feature_tools.hpp"

#include <new>

#include "base/hex_text.hpp"
#include "job/custom_text.hpp"
#include "job/diagnostics.hpp"
#include "psrewrite/line_tools.hpp"

namespace kelm::psrewrite {

bool outputFeatureByReplacingValue(JobStream& stream, LineBuffer& buffer, const PrintJobData& job,
                                   const char* key, const char* defaultText) {
  if (!readValueLine(stream, buffer)) return false;
  job::LogMessage("outputFeatureByReplacingValue start", true);
  job::LogMessage(key, true);
  std::string value;
  if (!getOptionValue(&job, key, value)) value = defaultText;
  if (writeWithValue(stream, buffer, value)) return true;
  job::LogMessage("outputFeatureByReplacingValue end", true);
  return false;
}

bool outputCustomTextByReplacingValue(JobStream& stream, LineBuffer& buffer,
                                      const PrintJobData& job, const char* key,
                                      const std::string& text) {
  std::string value;
  const bool custom =
      getOptionValue(&job, key, value) && value.find("Custom.") != std::string::npos;
  if (custom && !readValueLine(stream, buffer)) return false;
  return outputReplacingValue(stream, buffer, nullptr, text.c_str());
}

bool outputCustomTextFeatureByReplacingValue(JobStream& stream, LineBuffer& buffer,
                                             const PrintJobData& job, const char* key,
                                             const char* defaultText, bool asHex) {
  std::string text;
  if (asHex) {
    job::getCustomTextHexValue(&job, key, text, base::kTextBufferSize, defaultText);
  } else {
    job::getCustomTextValue(&job, key, text, base::kTextBufferSize);
  }
  return outputCustomTextByReplacingValue(stream, buffer, job, key, text);
}

bool writeWithValue(JobStream& stream, const LineBuffer& buffer, const std::string& value) try {
  std::string line = buffer.text();
  const auto rewritten = erase_str(line, value);
  if (!rewritten) return false;
  stream.write(*rewritten);
  return true;
} catch (const std::bad_alloc&) {
  return false;
}

bool drop(JobStream& stream, LineBuffer& buffer, PrintJobData& /*job*/) {
  readValueLine(stream, buffer);
  return false;
}

bool dropUnlogged(JobStream& stream, LineBuffer& buffer, PrintJobData& /*job*/) {
  readValueLineUnlogged(stream, buffer);
  return false;
}

bool copy(JobStream& stream, LineBuffer& buffer, PrintJobData& /*job*/) {
  const bool read = readValueLine(stream, buffer);
  stream.write(buffer.text());
  return read;
}

bool copyUnlogged(JobStream& stream, LineBuffer& buffer, PrintJobData& /*job*/) {
  const bool read = readValueLineUnlogged(stream, buffer);
  stream.writeUnlogged(buffer.text());
  return read;
}

bool leave(JobStream& /*stream*/, LineBuffer& /*buffer*/, PrintJobData& /*job*/) { return false; }

}  // namespace kelm::psrewrite
