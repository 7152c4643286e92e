// The printer's address, from the device URI of its queue.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::ctl {

// The numeric address (IPv4 before IPv6) of the host in `deviceUri`; empty when it has no network
// host or the host is unknown.
std::string addressOfDevice(const std::string& deviceUri);

}  // namespace kelm::ctl
