// The subcommands of kelmctl: each declares its arguments and gives its action (Subcommand).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ctl/subcommand.hpp"

namespace kelm::ctl {

Action declareAddress(CLI::App& app);
Action declarePpd(CLI::App& app);
Action declareSettings(CLI::App& app);
Action declarePrinter(CLI::App& app);
Action declareSync(CLI::App& app);
Action declareWake(CLI::App& app);

}  // namespace kelm::ctl
