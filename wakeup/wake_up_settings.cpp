// The input of a wake-up: the facts in the queue's PPD, and the queue's device URI.
// SPDX-License-Identifier: Apache-2.0
#include "wakeup/wake_up_settings.hpp"

#include <cstdlib>
#include <cstring>
#include <span>

#include "platform/platform.hpp"
#include "ppdsettings/snmp_helper.hpp"

namespace kelm::wakeup {
namespace {

using ppdsettings::KelmSNMPHelper;

std::string yesOrNo(bool value) { return value ? "YES" : "NO"; }

}  // namespace

WakeUpSettings wakeUpSettingsOf(ppd_file_t* ppd) {
  return {.snmpCommunity = KelmSNMPHelper::snmpCommunityName_(ppd),
          .macAddress = KelmSNMPHelper::getPrinterMacAddress_(ppd),
          .isWakeOnLan = KelmSNMPHelper::isWakeOnLan_(ppd),
          .isOverRouter = KelmSNMPHelper::isOverTheRouter_(ppd)};
}

platform::WakeUpRequest requestFor(const WakeUpSettings& settings, const Text& address) {
  return {.address = address,
          .macAddress = settings.macAddress,
          .snmpCommunity = settings.snmpCommunity,
          .isWakeOnLan = yesOrNo(settings.isWakeOnLan),
          .isOverRouter = yesOrNo(settings.isOverRouter)};
}

namespace {

Text deviceUriAmongDestinations(const Text& printer) {
  const std::span<cups_dest_t> all = platform::platform().destinations->list();
  if (all.empty()) return std::nullopt;
  const cups_dest_t* found = cupsGetDest(printer ? printer->c_str() : nullptr, nullptr,
                                         static_cast<int>(all.size()), all.data());
  Text uri;
  for (int i = 0; found != nullptr && i < found->num_options; ++i) {
    const cups_option_t& option = found->options[i];
    if (std::strcmp(option.name, "device-uri") == 0 && option.value != nullptr) uri = option.value;
  }
  return uri;
}

}  // namespace

Text deviceUriOf(const Text& printer) {
  if (Text uri = deviceUriAmongDestinations(printer)) return uri;
  const char* uri = std::getenv("DEVICE_URI");
  return uri != nullptr && *uri != '\0' ? Text(uri) : std::nullopt;
}

}  // namespace kelm::wakeup
