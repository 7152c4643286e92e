// The defaults that lp(1) adds to the options of a job.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/cups.h>

#include <string>
#include <vector>

#include "explain/request.hpp"

namespace kelm::ctl {

// Those of a destination that libcups has put together (cupsGetNamedDest): what lpoptions(1) keeps
// for the user and for this computer, and the print server's defaults for the queue. `name` is the
// queue's, with "/INSTANCE" for an instance of lpoptions.
std::vector<explain::Option> jobDefaults(const cups_dest_t& destination, const std::string& name);

}  // namespace kelm::ctl
