// Any value of an update job's option: the print system, which cuts lines and parses them with its
// own option parser, finds that option with that value in what is written, or nothing at all.
// SPDX-License-Identifier: Apache-2.0
#include <cups/cups.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/fake/fake_platform.hpp"
#include "ppdsettings/update_job.hpp"
#include "tests/support/memory_job.hpp"

namespace {

constexpr std::size_t kMessageSize = 2047;   // of cupsd
constexpr std::size_t kLongestValue = 4072;  // of a line that fits its buffer
constexpr char kKeyword[] = "PrinterIPAddress";

using Keywords = std::vector<std::pair<std::string, std::string>>;

std::string writtenFor(const std::string& value) {
  const kelm::platform::FakePlatform platform;
  kelm::tests::TestJob job({{kKeyword, value}});
  kelm::tests::MemoryOutput output;
  std::FILE* const own = std::exchange(stderr, output.stream());
  kelm::ppdsettings::UpdateIPAddressToPPD(&*job);
  stderr = own;
  return output.text();
}

void addKeywords(const std::string& message, Keywords& keywords) {
  if (message.compare(0, 4, "PPD:") != 0) return;
  cups_option_t* options = nullptr;
  const int count = cupsParseOptions(message.c_str() + 4, 0, &options);
  for (int i = 0; i < count; ++i) keywords.emplace_back(options[i].name, options[i].value);
  cupsFreeOptions(count, options);
}

// What cupsd stores for the lines that a filter writes.
Keywords storedBy(std::string_view lines) {
  Keywords keywords;
  while (!lines.empty()) {
    const std::size_t lineFeed = std::min(lines.find('\n'), lines.size());
    const std::size_t length = std::min(lineFeed, kMessageSize);
    addKeywords(std::string(lines.substr(0, length)), keywords);
    lines.remove_prefix(length < lineFeed ? length : std::min(lineFeed + 1, lines.size()));
  }
  return keywords;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), std::min(size, kLongestValue));
  const std::string value = bytes.c_str();
  const Keywords keywords = storedBy(writtenFor(value));
  const std::string storable =
      value.substr(0, kMessageSize - std::string_view("PPD: =").size() - sizeof kKeyword + 1);
  if (!keywords.empty() && keywords != Keywords{{kKeyword, storable}}) std::abort();
  return 0;
}
