// Custom values: "Custom." and the text.
// SPDX-License-Identifier: Apache-2.0
#include "job/custom_text.hpp"

#include "base/hex_text.hpp"

namespace kelm::job {

std::string customText(const std::string& value) {
  if (value.find("Custom.") == std::string::npos) return value;
  const std::size_t start = value.find('.') + 1;
  return value.substr(start, value.find('.', start) - start);
}

void getCustomTextValue(const PrintJobData* job, const char* key, std::string& out,
                        std::size_t size) {
  std::string value;
  if (!getOptionValue(job, key, value)) return;
  std::string text = customText(value);
  if (!text.empty() && text.size() < size) out = std::move(text);
}

void getCustomTextHexValue(const PrintJobData* job, const char* key, std::string& out,
                           std::size_t size, const std::string& defaultText) {
  std::string value;
  getOptionValue(job, key, value);
  std::string text = customText(value);
  if (text.empty()) text = defaultText;
  if (!text.empty() && size >= 2 * text.size()) out = base::hexText(text);
}

}  // namespace kelm::job
