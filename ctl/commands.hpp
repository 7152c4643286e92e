// The subcommands of kelmctl: each declares its arguments and gives its action (Subcommand).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ctl/subcommand.hpp"

namespace kelm::ctl {

Action declareAddress(ArgumentList& list);
Action declarePpd(ArgumentList& list);
Action declareSettings(ArgumentList& list);
Action declarePrinter(ArgumentList& list);
Action declareSync(ArgumentList& list);
Action declareRefresh(ArgumentList& list);
Action declareWake(ArgumentList& list);

}  // namespace kelm::ctl
