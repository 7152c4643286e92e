// The subcommands of kelmctl: each is a file NAME_command.cpp, a declaration and a row here. The
// function declares the subcommand's arguments and returns its action (Subcommand).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ctl/subcommand.hpp"

namespace kelm::ctl {

Action declareAddress(ArgumentList& list);
Action declareExplain(ArgumentList& list);
Action declarePpd(ArgumentList& list);
Action declareSettings(ArgumentList& list);
Action declarePrinter(ArgumentList& list);
Action declareSync(ArgumentList& list);
Action declareRefresh(ArgumentList& list);
Action declareWake(ArgumentList& list);

// In the order of the help text.
inline constexpr Subcommand kSubcommands[] = {
    {"settings", "Show what is stored about a queue's printer", declareSettings},
    {"ppd", "Show what a PPD offers, in your language", declarePpd},
    {"printer", "Show what printers say about themselves", declarePrinter},
    {"sync", "Store in queues what their printers say about themselves", declareSync},
    {"refresh", "Give a queue the installed PPD and keep its facts and defaults", declareRefresh},
    {"explain", "Show what a job tells the printer, and why", declareExplain},
    {"address", "Show the printer address that a device URI gives", declareAddress},
    {"wake", "Wake sleeping printers", declareWake},
};

}  // namespace kelm::ctl
