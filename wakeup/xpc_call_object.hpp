// One wake-up of the printer before a job: its address from the queue's device URI, the request to
// the wake-up service, and the wait for its call-back.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstdint>
#include <string_view>

#include "job/print_job.hpp"
#include "platform/wake_up_bus.hpp"
#include "wakeup/text.hpp"

namespace kelm::wakeup {

class XPCCallObject {
 public:
  // --- The printer's address. No state, no report: every failure is an absent text or -1. ---

  // How often `part` stands in `text`, without overlap; an empty part never does. -1 for an absent
  // text.
  static std::int32_t countCharacter_by_(const Text& text, std::string_view part);

  // Whether `uri` is taken to name an IPv6 address: after unescaping it has more than one ":". An
  // IPv4 address with a port does too, and goes the same way.
  static bool isAddressTypeIPv6_(const Text& uri);

  // The scheme's code: 1 "dnssd://", 0 "lpd://", 2 "pap://", 3 "usb://", in lower case; -1 for all
  // others and for what is no URI.
  static std::int32_t iGetProtocolByUrl_(const Text& uri);

  // The IPv4 address behind `uri`, as a dotted quad: a service ("dnssd://") is asked on the network
  // for at most 3 seconds at each place where its name may end, any other host is looked up.
  static Text ConvertDeviceURItoIPAddress_(const Text& uri);

  // What stands between the brackets of `uri`, after "v1." where that stands there, with "%" for
  // every "+"; without brackets the whole text. Nothing is looked up.
  static Text ConvertDeviceURItoIPAddressV6_(const Text& uri);

  // The first IPv4 address of a host, as a dotted quad; what follows a ":" is ignored. Nothing for
  // an empty name, one of 1024 characters or more, one that is not ASCII, and an unknown one.
  static Text ChangeNetLocationToIPAddress_(const Text& netLocation);

  // The address as the wake-up sees it: by the IPv6 way or by the IPv4 way.
  static Text addressOf(const Text& uri);

  // --- The call. ---

  // Whether a wake-up is to be sent: `isWakeOnLan` is set and the first six parts of `macAddress`
  // (hexadecimal, between ":") are not all zero. A part that is no number counts as zero.
  // Throws std::out_of_range for an address of fewer than six parts.
  static bool isEnableWakeOnLan_macAddress_(bool isWakeOnLan, const Text& macAddress);

  // Asks the wake-up service to wake the printer of the queue `printer`, when the job's PPD enables
  // that, and waits until it calls back: at most 240 sleeps of one second, none when the service
  // cannot be reached. Throws as isEnableWakeOnLan_macAddress_ does; nothing else is reported.
  void doWakeOnLanXPC_job_data_(const Text& printer, const job::PrintJobData* job);

  // The service's call-back; comes on another thread.
  void callFinishedXPCProcess() { isXPCWait = false; }

 private:
  void sendAndWait(const platform::WakeUpRequest& request);
  void waitForCallBack(const platform::WakeUpConnection& connection) const;

  std::atomic<bool> isXPCWait = false;  // the service has been asked and has not called back
};

// The wake-up of an ordinary job, as its pipeline calls it: the queue's name is argv[0]
// (filter(7)). Returns when the printer is awake, or the wake-up is off, impossible or has taken
// too long.
void callWoLXPC(int argc, char* argv[], const job::PrintJobData* job);

}  // namespace kelm::wakeup
