// The printer's address, from the device URI of its queue.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::ctl {

// The host in `deviceUri`, which is not looked up; empty when it has no network host.
std::string hostOfDevice(const std::string& deviceUri);

// The numeric address (IPv4 before IPv6) of a host; empty when it is unknown.
std::string addressOfHost(const std::string& host);

// The numeric address (IPv4 before IPv6) of the host in `deviceUri`; empty when it has no network
// host or the host is unknown.
std::string addressOfDevice(const std::string& deviceUri);

// Advice for a device URI from which the wake-up before a job does not get the printer's `address`:
// the reason, and a device URI that works. Empty when the URI needs no advice.
std::string wakeUpAdvice(const std::string& deviceUri, const std::string& address);

}  // namespace kelm::ctl
