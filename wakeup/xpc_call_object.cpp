// The request to the wake-up service, and the wait for its call-back.
// SPDX-License-Identifier: Apache-2.0
#include "wakeup/xpc_call_object.hpp"

#include <array>
#include <chrono>
#include <vector>

#include "platform/platform.hpp"
#include "wakeup/wake_up_settings.hpp"

namespace kelm::wakeup {
namespace {

constexpr std::size_t kMacParts = 6;
constexpr int kMostSleeps = 240;
constexpr std::chrono::seconds kSleep{1};

std::vector<std::string_view> partsOf(std::string_view macAddress) {
  std::vector<std::string_view> parts;
  for (std::size_t end = 0; end != std::string_view::npos;) {
    end = macAddress.find(':');
    parts.push_back(macAddress.substr(0, end));
    if (end != std::string_view::npos) macAddress.remove_prefix(end + 1);
  }
  return parts;
}

// Whether the hexadecimal number at the front of `part`, behind blanks and "0x", is not zero; one
// that is too large counts as the largest.
bool isNonZeroHexNumber(std::string_view part) {
  part.remove_prefix(std::min(part.find_first_not_of(" \t\r\n"), part.size()));
  if (part.starts_with("0x") || part.starts_with("0X")) part.remove_prefix(2);
  const std::size_t zeros = part.find_first_not_of('0');
  constexpr std::string_view kDigits = "123456789abcdefABCDEF";
  return zeros != std::string_view::npos && kDigits.find(part[zeros]) != std::string_view::npos;
}

}  // namespace

bool XPCCallObject::isEnableWakeOnLan_macAddress_(bool isWakeOnLan, const Text& macAddress) {
  if (!isWakeOnLan || !macAddress || macAddress->empty()) return false;
  const std::vector<std::string_view> parts = partsOf(*macAddress);
  bool enabled = false;
  for (std::size_t i = 0; i < kMacParts; ++i) {
    if (isNonZeroHexNumber(parts.at(i))) enabled = true;
  }
  return enabled;
}

void XPCCallObject::doWakeOnLanXPC_job_data_(const Text& printer, const job::PrintJobData* job) {
  const WakeUpSettings settings = wakeUpSettingsOf(job != nullptr ? job->ppd : nullptr);
  if (!isEnableWakeOnLan_macAddress_(settings.isWakeOnLan, settings.macAddress)) return;
  isXPCWait = true;
  const Text uri = deviceUriOf(printer);
  sendAndWait(requestFor(settings, uri ? addressOf(uri) : std::nullopt));
}

void XPCCallObject::sendAndWait(const platform::WakeUpRequest& request) {
  const auto connection =
      platform::platform().wakeUpBus->send(request, [this] { callFinishedXPCProcess(); });
  waitForCallBack(*connection);
}

void XPCCallObject::waitForCallBack(const platform::WakeUpConnection& connection) const {
  for (int sleeps = 0; isXPCWait && connection.isOpen() && sleeps < kMostSleeps; ++sleeps) {
    platform::platform().steadyClock->sleep(kSleep);
  }
}

void callWoLXPC(int argc, char* argv[], const job::PrintJobData* job) {
  const Text printer = argc >= 1 ? Text(argv[0]) : std::nullopt;
  XPCCallObject call;
  call.doWakeOnLanXPC_job_data_(printer, job);
}

}  // namespace kelm::wakeup
