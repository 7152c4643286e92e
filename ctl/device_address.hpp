// The printer's address, from the device URI of its queue.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace kelm::ctl {

// The numeric address (IPv4 before IPv6) of the host that `deviceUri` names; empty when it names
// none on the network, or one that nobody knows.
std::string addressOfDevice(const std::string& deviceUri);

}  // namespace kelm::ctl
