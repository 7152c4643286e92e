// Messages of kelmctl on standard error.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

#include "ctl/subcommand.hpp"

namespace kelm::ctl {

// Writes "kelmctl: " and `text`, with all control characters escaped: a message may quote queue
// names, file names and answers of servers.
void complain(const Console& console, std::string_view text);

std::string inQuotes(std::string_view text);

// Complains and returns the exit status for it.
int fail(const Console& console, std::string_view problem);

}  // namespace kelm::ctl
