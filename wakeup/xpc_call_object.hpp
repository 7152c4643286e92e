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
  // --- The printer's address. Stateless; every failure is an absent text or -1. ---

  // The number of non-overlapping occurrences of `part` in `text`; 0 for an empty part, -1 for an
  // absent text.
  static std::int32_t countCharacter_by_(const Text& text, std::string_view part);

  // Whether `uri` counts as one with an IPv6 address: after unescaping it has more than one ":". So
  // has a URI of an IPv4 address with a port, and it is treated in the same way.
  static bool isAddressTypeIPv6_(const Text& uri);

  // The scheme's code: 1 "dnssd://", 0 "lpd://", 2 "pap://", 3 "usb://", in lower case; -1 for all
  // others and for what is not a URI.
  static std::int32_t iGetProtocolByUrl_(const Text& uri);

  // The IPv4 address of the printer at `uri`, as a dotted quad. A service ("dnssd://") is resolved,
  // at most 3 seconds for each place where its name may end; any other host is looked up.
  static Text ConvertDeviceURItoIPAddress_(const Text& uri);

  // The text between the brackets of `uri`, without anything up to "v1.", with "%" for every "+";
  // without brackets the whole text. Nothing is looked up.
  static Text ConvertDeviceURItoIPAddressV6_(const Text& uri);

  // The first IPv4 address of a host, as a dotted quad; anything from a ":" on is ignored. Absent
  // for a name that is empty, not ASCII, unknown, or has 1024 characters or more.
  static Text ChangeNetLocationToIPAddress_(const Text& netLocation);

  // The printer's address: the IPv6 or the IPv4 conversion, as isAddressTypeIPv6_ decides.
  static Text addressOf(const Text& uri);

  // --- The call. ---

  // Whether to wake the printer: `isWakeOnLan` is set and the first six parts of `macAddress`
  // (hexadecimal, separated by ":") are not all zero. A part that is not a number counts as zero.
  // Throws std::out_of_range for an address of fewer than six parts.
  static bool isEnableWakeOnLan_macAddress_(bool isWakeOnLan, const Text& macAddress);

  // Asks the wake-up service to wake the printer of the queue `printer` when the job's PPD enables
  // that, and waits for its call-back: at most 240 sleeps of one second, none when the service
  // cannot be reached. Throws what isEnableWakeOnLan_macAddress_ throws; reports no other error.
  void doWakeOnLanXPC_job_data_(const Text& printer, const job::PrintJobData* job);

  // The service's call-back; runs on another thread.
  void callFinishedXPCProcess() { isXPCWait = false; }

 private:
  void sendAndWait(const platform::WakeUpRequest& request);
  void waitForCallBack(const platform::WakeUpConnection& connection) const;

  std::atomic<bool> isXPCWait = false;  // the service has been asked and has not called back
};

// The wake-up of an ordinary job; argv[0] is the queue's name (filter(7)). Returns when the printer
// is awake, or the wake-up is off, impossible or has taken too long.
void callWoLXPC(int argc, char* argv[], const job::PrintJobData* job);

}  // namespace kelm::wakeup
