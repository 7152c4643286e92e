// Finds out which of many printers are there, all at the same time and in one process.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <list>
#include <string>

#include "platform/socket_set.hpp"

namespace kelm::snmp {

// It takes 8 seconds to know that a printer is off. Waiting for many printers here needs one socket
// for each, and no processes.
class Presence {
 public:
  using Found = std::function<void(bool isThere)>;

  Presence();
  ~Presence();
  Presence(const Presence&) = delete;
  Presence& operator=(const Presence&) = delete;

  // Asks for the sleep mode and, if that gets no answer, for the MAC address, as often as
  // QVSNMPHelper does. Any answer counts, even an error. `address` is in numbers, with brackets if
  // it is an IPv6 address. `found` is called during a later `look`. If the result is false, nothing
  // can be sent to this address, and `found` is not called.
  bool ask(const std::string& address, const std::string& community, Found found);

  // How many printers are being asked.
  std::size_t count() const { return printers_.size(); }

  // Becomes readable when an answer is there.
  int descriptor() const { return sockets_.descriptor(); }

  // Reads the answers that have arrived, and repeats requests without an answer. Call it several
  // times a second.
  void look();

 private:
  struct Printer;
  using Clock = std::chrono::steady_clock;

  bool start(Printer& printer);
  void take();
  void repeat();
  void endOver();

  platform::SocketSet sockets_;
  std::list<Printer> printers_;
  Clock::time_point nextRepeat_;
};

}  // namespace kelm::snmp
