// Any value of an update job's option. cupsd cuts lines and parses them with libcups' option
// parser: in what the filter writes, it must find that option with that value, or nothing. A PPD
// with the stored value must be readable, with that value, and must not end a later job.
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
#include "ppdsettings/snmp_helper.hpp"
#include "ppdsettings/update_job.hpp"
#include "tests/fuzz/fuzz_target.hpp"
#include "tests/support/memory_job.hpp"
#include "tests/support/memory_ppd.hpp"
#include "wakeup/xpc_call_object.hpp"

namespace {

constexpr std::size_t kMessageSize = 2047;   // of cupsd
constexpr std::size_t kLongestValue = 4071;  // in a line that fits its buffer

using Keywords = std::vector<std::pair<std::string, std::string>>;

using Updater = bool(const kelm::job::PrintJobData*);

std::string writtenFor(const char* keyword, Updater* update, const std::string& value) {
  const kelm::platform::FakePlatform platform;
  kelm::tests::TestJob job({{keyword, value}});
  kelm::tests::MemoryOutput output;
  std::FILE* const own = std::exchange(stderr, output.stream());
  update(&*job);
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

// cupsd writes "*KEYWORD: VALUE" into the PPD. A later job must be able to read it and its MAC
// address; an address of too few parts would throw.
void checkNextJob(const char* keyword, const std::string& value) {
  const kelm::tests::MemoryPpd ppd("*" + std::string(keyword) + ": " + value + "\n");
  if (static_cast<ppd_file_t*>(ppd) == nullptr) std::abort();
  using kelm::ppdsettings::KelmSNMPHelper;
  if (KelmSNMPHelper::getPPDAttributeValueForName_ppdFile_(keyword, ppd) != value) std::abort();
  kelm::wakeup::XPCCallObject::isEnableWakeOnLan_macAddress_(
      true, KelmSNMPHelper::getPrinterMacAddress_(ppd));
}

void checkValue(const char* keyword, Updater* update, const std::string& value) {
  const Keywords keywords = storedBy(writtenFor(keyword, update, value));
  if (keywords.empty()) return;
  if (keywords != Keywords{{keyword, value}}) std::abort();
  checkNextJob(keyword, value);
}

}  // namespace

FUZZ_TARGET(update_values) {
  const std::string bytes(reinterpret_cast<const char*>(data), std::min(size, kLongestValue));
  const std::string value = bytes.c_str();
  checkValue("PrinterIPAddress", kelm::ppdsettings::UpdateIPAddressToPPD, value);
  checkValue("PrinterMacAddress", kelm::ppdsettings::UpdateMacAddressToPPD, value);
  return 0;
}
